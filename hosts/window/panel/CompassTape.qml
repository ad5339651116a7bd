// The tape that slides under a fixed mark.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: frame

    required property PanelAdapter panel
    required property PanelStyle look

    width: 2 * tape.north  // so that the mark is in the middle
    height: 24
    radius: panel.tapeRadius
    border.width: panel.tapeBorderWidth
    border.color: panel.tapeBorderColor
    color: look.field

    // Its corners are square, but the letters never come near the rounded ones.
    Item {
        anchors.fill: parent
        anchors.margins: frame.panel.tapeBorderWidth
        clip: true

        Tape {
            id: tape
            objectName: "tape"
            x: frame.panel.tapeOffset - parent.x
            y: -rise - parent.y
            text: frame.panel.tape
            pixelSize: 11 * frame.look.fontScale
            labelColor: frame.look.value
            dotColor: frame.look.caption
        }
    }
    Shape {
        objectName: "mark"
        x: (frame.width - width) / 2
        y: 0
        width: 11
        height: 7
        visible: frame.panel.markShown
        shape: Shape.Mark
        color: frame.look.mark
    }
}
