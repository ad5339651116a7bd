// What is in the window: the panel, and below it the host's own line.
import QtQuick
import Wayfell.Panel

FocusScope {
    id: root

    required property PanelAdapter panel
    required property PanelStyle look
    readonly property real contentHeight: line.y + line.implicitHeight

    focus: true

    Panel {
        id: widget
        panel: root.panel
        look: root.look
        width: root.width
        visible: root.panel.onScreen
        focus: true
    }
    HostLine {
        id: line
        panel: root.panel
        look: root.look
        y: root.panel.onScreen ? root.panel.preferredHeight : 0
        width: root.width
    }
}
