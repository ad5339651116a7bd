// What is in the window: the panel, or the list of keys in its place, and below it the host's own
// line.
import QtQuick
import Wayfell.Panel

FocusScope {
    id: root

    required property PanelAdapter panel
    required property PanelStyle look
    /// Those of KeysPage, while it is to be seen.
    property var keys: []
    property string hiddenHint
    readonly property bool showsKeys: keys.length > 0
    readonly property real contentHeight: line.y + line.implicitHeight

    /// The hidden panel is to be seen again.
    signal panelAsked
    /// What the key in this place of the list does is to be done.
    signal keyAsked(int index)

    focus: true

    Panel {
        id: widget
        panel: root.panel
        look: root.look
        width: root.width
        visible: root.panel.onScreen && !root.showsKeys
        focus: true
    }
    KeysPage {
        id: page
        objectName: "keysPage"
        look: root.look
        keys: root.keys
        width: root.width
        visible: root.showsKeys
        onRead: root.keys = []
        onAsked: index => {
            root.keys = []
            root.keyAsked(index)
        }
    }
    HostLine {
        id: line
        panel: root.panel
        look: root.look
        hiddenHint: root.hiddenHint
        y: root.showsKeys ? page.height : root.panel.onScreen ? widget.height : 0
        width: root.width
        onPanelAsked: root.panelAsked()
    }
}
