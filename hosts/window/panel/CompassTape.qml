// The tape that slides under a fixed mark.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: frame

    required property PanelAdapter panel
    required property PanelStyle look

    width: 2 * Math.round(tape.north * look.unit)  // so that the mark is in the middle
    height: Math.round(24 * look.unit)
    radius: panel.tapeRadius * look.unit
    border.width: Math.round(panel.tapeBorderWidth * look.unit)
    border.color: panel.tapeBorderColor
    color: look.field

    // Hides halves of letters, where the tape leaves the frame.
    component Fade: Rectangle {
        id: fade
        required property bool first
        required property color field
        readonly property color clear: Qt.rgba(field.r, field.g, field.b, 0)
        x: first ? 0 : parent.width - width
        width: parent.width / 6
        height: parent.height
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0; color: fade.first ? fade.field : fade.clear }
            GradientStop { position: 1; color: fade.first ? fade.clear : fade.field }
        }
    }

    // Its corners are square, but the letters never come near the rounded ones.
    Item {
        anchors.fill: parent
        anchors.margins: frame.border.width
        clip: true

        Tape {
            id: tape
            objectName: "tape"
            x: frame.panel.tapeOffset * unit - parent.x
            y: -rise * unit - parent.y
            text: frame.panel.tape
            letterSize: 12
            unit: frame.look.unit
            labelColor: frame.panel.heading.dim ? frame.look.dim : frame.look.value
            dotColor: frame.look.caption
        }
        Fade { first: true; field: frame.look.field }
        Fade { first: false; field: frame.look.field }
    }
    Shape {
        objectName: "mark"
        x: (frame.width - width) / 2
        y: 0
        width: 11 * frame.look.unit
        height: 7 * frame.look.unit
        visible: frame.panel.markShown
        shape: Shape.Mark
        color: frame.panel.heading.dim ? frame.look.dim : frame.look.mark
    }
}
