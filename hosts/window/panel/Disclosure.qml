// The button that switches between the two layouts: turned down when there is more to see.
import QtQuick
import Wayfell.Items

Rectangle {
    id: button

    required property QtObject view
    required property QtObject look
    signal tapped

    objectName: view.objectName + "Plate"
    radius: 4
    color: look.plate
    activeFocusOnTab: true
    Keys.onSpacePressed: tapped()
    Keys.onReturnPressed: tapped()
    Keys.onEnterPressed: tapped()
    Accessible.role: Accessible.Button
    Accessible.name: view.spoken
    Accessible.focusable: true
    Accessible.onPressAction: tapped()

    Shape {
        objectName: button.view.objectName
        anchors.centerIn: parent
        width: 20
        height: 20
        visible: !button.view.hidden
        shape: Shape.Disclosure
        color: button.look.plateText
        turn: button.view.rotation
        // Closed, it points to where reading goes on.
        transform: Scale {
            origin.x: 10
            xScale: button.look.rightToLeft ? -1 : 1
        }
        // A turn that is asked for midway goes on from where the last one is.
        Behavior on turn {
            enabled: !button.look.reducedMotion
            NumberAnimation {
                duration: button.view.turnDuration
                easing.type: Easing.BezierSpline
                easing.bezierCurve: [0, 0, 0.58, 1, 1, 1]
            }
        }
    }
    TouchArea { onClicked: button.tapped() }
    FocusRing { look: button.look }
}
