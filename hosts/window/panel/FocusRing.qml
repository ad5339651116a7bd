// Around what has the keyboard.
import QtQuick

Rectangle {
    required property QtObject look

    anchors.fill: parent
    anchors.margins: -3
    radius: 6
    color: "transparent"
    border.width: 2
    border.color: look.focus
    visible: parent.activeFocus
}
