// What the host itself says, in one line beside the panel.
import QtQuick

Rectangle {
    id: line

    required property QtObject panel
    required property QtObject look
    readonly property real gap: 8

    component Words: Text {
        height: line.height
        color: line.look.caption
        font.pixelSize: Math.round(11.5 * line.look.fontScale)
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    objectName: "hostLine"
    implicitWidth: 359
    implicitHeight: Math.ceil(message.font.pixelSize * 1.9)
    radius: 4
    color: look.backing
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true

    Rectangle {
        anchors.fill: badge
        anchors.topMargin: 3
        anchors.bottomMargin: 3
        radius: 4
        color: line.look.plate
        visible: badge.text !== ""
    }
    Words {
        id: badge
        anchors.left: parent.left
        anchors.leftMargin: 3
        leftPadding: text === "" ? 0 : 6
        rightPadding: leftPadding
        text: line.panel.badge
        color: line.look.plateText
        font.bold: true
    }
    Words {
        id: message
        objectName: "hostMessage"
        anchors.left: badge.right
        anchors.right: state.left
        anchors.margins: line.gap
        text: line.panel.message
        color: line.panel.fault === "" ? line.look.value : line.look.mark
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
    }
    Words {
        id: state
        anchors.right: warning.left
        anchors.rightMargin: warning.text === "" ? 0 : line.gap
        text: line.panel.state
    }
    Words {
        id: warning
        objectName: "hostWarning"
        anchors.right: parent.right
        anchors.rightMargin: line.gap
        text: line.panel.warning
        color: line.look.mark
        font.bold: true
    }
}
