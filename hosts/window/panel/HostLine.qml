// What the host itself says, beside the panel: a line of what is shown, and below it, where there
// is any, what the user should hear of, and whose data is shown.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: line

    required property PanelAdapter panel
    required property PanelStyle look
    /// How a hidden panel is brought back: by a click on this, too.
    property string hiddenHint
    readonly property real gap: 8
    // The badge and a short state have room on one line at every size of letters. What has none beside
    // them stands below, where it wraps.
    readonly property real pixelSize: Math.round(Math.min(11.5 * look.fontScale, width / 25))
    readonly property real rowHeight: Math.ceil(pixelSize * 1.9)
    readonly property bool stateInRow: badge.width + stateMetrics.width + 3 * gap <= width
    readonly property real rowUsed: badge.width + (stateInRow ? stateMetrics.width : 0)
    readonly property bool warningInRow: rowUsed + warningMetrics.width + 5 * gap <= width

    signal panelAsked

    // To those who do not see that it has come.
    function tell(item: Text) {
        if (item.text !== "") panel.alert(item)
    }

    // Names from outside, which an inline component sees only by what it stands in.
    // qmllint disable unqualified
    component Words: Text {
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
        font.pixelSize: line.pixelSize
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: text === ""
    }
    component InRow: Words {
        height: parent.height
    }
    component Paragraph: Words {
        readonly property real room: visible ? height : 0
        // At once, and not with the next picture: the window's height follows.
        onRoomChanged: paragraphs.forceLayout()
        width: parent.width
        bottomPadding: 4
        visible: text !== ""
        wrapMode: Text.Wrap
    }
    // qmllint enable unqualified

    objectName: "hostLine"
    implicitWidth: 359
    implicitHeight: rowHeight + paragraphs.height
    height: implicitHeight
    radius: 4
    color: look.backing
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true

    Item {
        width: parent.width
        height: line.rowHeight

        // What is no live position is not to be taken for one.
        Rectangle {
            objectName: "hostPlate"
            anchors.fill: badge
            anchors.margins: line.panel.live ? 3 : 1
            anchors.leftMargin: 0
            anchors.rightMargin: 0
            radius: 4
            color: line.panel.live ? line.look.plate : line.look.chosen
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
            color: line.panel.live ? line.look.plateText : line.panel.chosenTitleColor
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
            visible: width > 0
            elide: Text.ElideRight
        }
        InRow {
            id: state
            objectName: "hostState"
            anchors.right: warning.left
            anchors.rightMargin: warning.text === "" ? 0 : line.gap
            text: line.stateInRow ? line.panel.state : ""
            color: line.look.value
        }
        InRow {
            id: warning
            objectName: "hostWarning"
            anchors.right: parent.right
            anchors.rightMargin: line.gap
            text: line.warningInRow ? line.panel.warning : ""
            color: line.look.mark
            font.bold: true
            Accessible.role: Accessible.AlertMessage
            onTextChanged: line.tell(this)
        }
    }
    TextMetrics {
        id: stateMetrics
        font: state.font
        text: line.panel.state
    }
    TextMetrics {
        id: warningMetrics
        font: warning.font
        text: line.panel.warning
    }
    Column {
        id: paragraphs
        x: line.gap
        y: line.rowHeight
        width: line.width - 2 * line.gap

        Paragraph {
            objectName: "hostStateBelow"
            text: line.stateInRow ? "" : line.panel.state
            color: line.look.value
        }
        Paragraph {
            objectName: "hostWarningBelow"
            text: line.warningInRow ? "" : line.panel.warning
            color: line.look.mark
            font.bold: true
            Accessible.role: Accessible.AlertMessage
            onTextChanged: line.tell(this)
        }
        Paragraph {
            objectName: "hostHidden"
            text: line.panel.onScreen ? "" : line.hiddenHint
            color: line.look.value
            font.underline: true
            Accessible.role: Accessible.Button
            Accessible.onPressAction: line.panelAsked()
        }
        Paragraph {
            objectName: "hostMessage"
            text: line.panel.message
            color: line.panel.fault === "" ? line.look.value : line.look.mark
            Accessible.role: Accessible.AlertMessage
            onTextChanged: line.tell(this)
        }
        Paragraph {
            objectName: "hostNote"
            text: line.panel.note
            color: line.look.caption
        }
        Paragraph {
            objectName: "hostCredit"
            text: line.panel.credit
            color: line.look.caption
        }
    }
    MouseArea {
        // The window may be dragged by it.
        readonly property bool letsDrag: true
        anchors.fill: parent
        visible: !line.panel.onScreen
        cursorShape: Qt.PointingHandCursor
        onClicked: line.panelAsked()
    }
}
