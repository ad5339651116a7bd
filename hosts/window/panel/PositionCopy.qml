// The position is copied by a tap on it, short or long.
import QtQuick
import Wayfell.Panel

Item {
    id: copy

    required property PanelAdapter panel
    required property PanelStyle look

    objectName: "positionCopy"
    activeFocusOnTab: true
    Keys.onSpacePressed: panel.copyPosition()
    Keys.onReturnPressed: panel.copyPosition()
    Keys.onEnterPressed: panel.copyPosition()
    Accessible.role: Accessible.Button
    Accessible.name: panel.copyWords
    Accessible.focusable: true
    Accessible.onPressAction: panel.copyPosition()

    TouchArea {
        // The window may be dragged by it.
        readonly property bool letsDrag: true
        onClicked: copy.panel.copyPosition()
        onPressAndHold: copy.panel.copyPosition()
    }
    FocusRing { look: copy.look }
}
