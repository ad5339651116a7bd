// The button that switches between the two layouts: turned down when there is more to see.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: button

    required property PanelAdapter panel
    required property PanelStyle look

    radius: 4 * button.look.unit
    color: look.plate
    activeFocusOnTab: true
    Keys.onSpacePressed: panel.switchLayout()
    Keys.onReturnPressed: panel.switchLayout()
    Keys.onEnterPressed: panel.switchLayout()
    Accessible.role: Accessible.Button
    Accessible.name: panel.layout.spoken
    Accessible.focusable: true
    Accessible.onPressAction: panel.switchLayout()

    Shape {
        objectName: "disclosure"
        anchors.centerIn: parent
        width: 20 * button.look.unit
        height: 20 * button.look.unit
        shape: Shape.Disclosure
        color: button.look.plateText
        turn: button.panel.layoutTurn
        // Closed, it points to where reading goes on.
        transform: Scale {
            origin.x: 10 * button.look.unit
            xScale: button.look.rightToLeft ? -1 : 1
        }
        // A turn that is asked for midway goes on from where the last one is.
        Behavior on turn {
            enabled: !button.look.reducedMotion
            NumberAnimation {
                duration: button.panel.layoutTurnDuration
                easing.type: Easing.BezierSpline
                easing.bezierCurve: [0, 0, 0.58, 1, 1, 1]
            }
        }
    }
    TouchArea { onClicked: button.panel.switchLayout() }
    FocusRing { look: button.look }
}
