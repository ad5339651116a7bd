// The list of what keys do, in the panel's place until a key or a click takes it away. A click on a
// line does what its key does.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: page

    required property PanelStyle look
    /// Of each action: keys, does.
    required property var keys
    readonly property real margin: 10
    readonly property real pixelSize: Math.round(Math.min(12.5 * look.fontScale, width / 24))

    /// The list has been read; one in it has been clicked on.
    signal read
    signal asked(int index)

    implicitWidth: 359
    implicitHeight: rows.height + 2 * margin
    height: implicitHeight
    radius: 4
    color: look.backing
    border.width: 1
    border.color: look.edge
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.List

    // Names from outside, which an inline component sees only by what it stands in.
    // qmllint disable unqualified
    component Words: Text {
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        font.pixelSize: page.pixelSize
        Accessible.ignored: true
    }
    // qmllint enable unqualified

    MouseArea {
        // The window may be dragged by it.
        readonly property bool letsDrag: true
        anchors.fill: parent
        onClicked: page.read()
    }
    Column {
        id: rows
        x: page.margin
        y: page.margin
        width: page.width - 2 * page.margin
        spacing: 4

        Repeater {
            model: page.keys

            // Names from outside, of which qmllint knows from Qt 6.5 on that a delegate sees them.
            // qmllint disable unqualified
            Item {
                required property var modelData
                required property int index
                width: rows.width
                height: Math.max(key.height, does.height)
                // At once, and not with the next picture: the window's height follows.
                onHeightChanged: rows.forceLayout()
                Accessible.role: Accessible.ListItem
                Accessible.name: modelData.keys + ": " + modelData.does
                Accessible.onPressAction: page.asked(index)

                Words {
                    id: key
                    anchors.left: parent.left
                    width: parent.width * 0.3
                    text: parent.modelData.keys
                    color: page.look.value
                    font.bold: true
                }
                Words {
                    id: does
                    anchors.left: key.right
                    anchors.right: parent.right
                    anchors.leftMargin: page.margin
                    text: parent.modelData.does
                    color: page.look.value
                }
                MouseArea {
                    readonly property bool letsDrag: true
                    anchors.fill: parent
                    anchors.margins: -rows.spacing / 2
                    cursorShape: Qt.PointingHandCursor
                    onClicked: page.asked(parent.index)
                }
            }
            // qmllint enable unqualified
        }
    }
}
