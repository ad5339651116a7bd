// What the host itself says, beside the panel: a line of what is shown, and below it, where there
// is any, what the user should hear of, and whose data is shown.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: line

    required property PanelAdapter panel
    required property PanelStyle look
    readonly property real gap: 8
    // The badge and the state have room on one line at every size of letters. A warning that has none
    // beside them stands below.
    readonly property real pixelSize: Math.round(Math.min(11.5 * look.fontScale, width / 25))
    readonly property real rowHeight: Math.ceil(pixelSize * 1.9)
    readonly property bool tight: badge.width + state.width + warningMetrics.width + 5 * gap > width

    component Words: Text {
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: text === ""
    }
    component InRow: Words {
        height: parent.height
    }
    // As high as its text: a height that is bound to that would be a loop.
    component Paragraph: Words {
        readonly property real room: text === "" ? 0 : height
        width: parent.width
        bottomPadding: 4
        visible: text !== ""
        wrapMode: Text.Wrap
    }

    objectName: "hostLine"
    implicitWidth: 359
    implicitHeight: rowHeight + warningBelow.room + message.room + credit.room
    height: implicitHeight
    radius: 4
    color: look.backing
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true

    Item {
        width: parent.width
        height: line.rowHeight

        Rectangle {
            anchors.fill: badge
            anchors.topMargin: 3
            anchors.bottomMargin: 3
            radius: 4
            color: line.look.plate
            visible: badge.text !== ""
        }
        InRow {
            id: badge
            objectName: "hostBadge"
            anchors.left: parent.left
            anchors.leftMargin: 3
            leftPadding: text === "" ? 0 : 6
            rightPadding: leftPadding
            text: line.panel.badge
            color: line.look.plateText
            font.pixelSize: line.pixelSize
            font.bold: true
        }
        InRow {
            objectName: "hostTitle"
            anchors.left: badge.right
            anchors.right: state.left
            anchors.leftMargin: line.gap
            anchors.rightMargin: line.gap
            text: line.panel.title
            color: line.look.caption
            font.pixelSize: line.pixelSize
            visible: width > 0
            elide: Text.ElideRight
        }
        InRow {
            id: state
            objectName: "hostState"
            anchors.right: warning.left
            anchors.rightMargin: warning.text === "" ? 0 : line.gap
            text: line.panel.state
            color: line.look.value
            font.pixelSize: line.pixelSize
        }
        InRow {
            id: warning
            objectName: "hostWarning"
            anchors.right: parent.right
            anchors.rightMargin: line.gap
            text: line.tight ? "" : line.panel.warning
            color: line.look.mark
            font.pixelSize: line.pixelSize
            font.bold: true
        }
    }
    TextMetrics {
        id: warningMetrics
        font: warning.font
        text: line.panel.warning
    }
    Item {
        x: line.gap
        y: line.rowHeight
        width: line.width - 2 * line.gap
        height: warningBelow.room + message.room + credit.room

        Paragraph {
            id: warningBelow
            objectName: "hostWarningBelow"
            text: line.tight ? line.panel.warning : ""
            color: line.look.mark
            font.pixelSize: line.pixelSize
            font.bold: true
        }
        Paragraph {
            id: message
            objectName: "hostMessage"
            y: warningBelow.room
            text: line.panel.message
            color: line.panel.fault === "" ? line.look.value : line.look.mark
            font.pixelSize: line.pixelSize
        }
        Paragraph {
            id: credit
            objectName: "hostCredit"
            y: warningBelow.room + message.room
            text: line.panel.credit
            color: line.look.caption
            font.pixelSize: line.pixelSize
        }
    }
}
