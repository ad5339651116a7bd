// "Open", on its plate.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: plate

    required property PanelAdapter panel
    required property PanelStyle look

    radius: panel.openRadius * look.unit
    color: look.plate
    activeFocusOnTab: true
    Keys.onSpacePressed: panel.openApp()
    Keys.onReturnPressed: panel.openApp()
    Keys.onEnterPressed: panel.openApp()
    Accessible.role: Accessible.Button
    Accessible.name: panel.open.spoken
    Accessible.focusable: true
    Accessible.onPressAction: panel.openApp()

    PanelText {
        row: plate.panel.open
        look: plate.look
        size: 13
        minimumPixelSize: 9 * look.unit
        start: 3 * look.unit
        width: parent.width - 2 * start
        height: parent.height
        horizontalAlignment: Text.AlignHCenter
        heavy: true
        color: look.plateText
        Accessible.ignored: true
    }
    TouchArea { onClicked: plate.panel.openApp() }
    FocusRing { look: plate.look }
}
