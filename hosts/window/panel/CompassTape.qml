// The tape that slides under a fixed mark.
import QtQuick
import Wayfell.Items

Rectangle {
    id: frame

    required property QtObject panel
    required property QtObject look
    readonly property QtObject view: panel.outlets.compassView

    objectName: view.objectName
    width: 130  // twice kTapeNorth, so that the mark is in the middle
    height: 24
    visible: !view.hidden
    radius: view.cornerRadius
    border.width: view.borderWidth
    border.color: view.borderColor
    color: look.field

    // Its corners are square, but the letters never come near the rounded ones.
    Item {
        anchors.fill: parent
        anchors.margins: frame.view.borderWidth
        clip: true

        Tape {
            objectName: "compassLabel"
            x: frame.panel.tapeOffset - parent.x
            y: -3 - parent.y
            text: frame.panel.outlets.compassLabel.text
            pixelSize: 11 * frame.look.fontScale
            labelColor: frame.look.value
            dotColor: frame.look.caption
        }
    }
    Shape {
        objectName: "compassArrowImageView"
        x: (frame.width - width) / 2
        y: 0
        width: 11
        height: 7
        visible: !frame.panel.outlets.compassArrowImageView.hidden
        shape: Shape.Mark
        color: frame.look.mark
    }
}
