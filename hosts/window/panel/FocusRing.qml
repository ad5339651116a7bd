// Around what has the keyboard. Of two lines, one stands out from whatever is behind.
import QtQuick
import Wayfell.Panel

Rectangle {
    required property PanelStyle look

    anchors.fill: parent
    anchors.margins: -3
    radius: 6
    color: "transparent"
    border.width: 2
    border.color: look.focus
    visible: parent.activeFocus

    Rectangle {
        anchors.fill: parent
        anchors.margins: 2
        radius: 4
        color: "transparent"
        border.width: 1
        border.color: parent.look.backing
    }
}
