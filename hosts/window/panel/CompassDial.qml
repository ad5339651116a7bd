// North, and the way to the waypoint, as seen by someone who looks along the heading.
import QtQuick
import Wayfell.Items

Item {
    id: compass

    required property QtObject panel
    required property QtObject look
    readonly property QtObject view: panel.outlets.compassRotatingView
    readonly property QtObject arrowView: panel.outlets.compassArrowView

    component Turning: NumberAnimation {
        duration: compass.panel.compassTurnDuration
        easing.type: Easing.OutQuad
    }

    objectName: view.objectName
    visible: !view.hidden
    Accessible.role: Accessible.Graphic
    Accessible.name: view.spoken

    Shape {
        anchors.fill: parent
        shape: Shape.Dial
        color: compass.look.value
        secondColor: compass.look.caption
    }
    Shape {
        objectName: "compassNeedle"
        anchors.fill: parent
        shape: Shape.Needle
        color: compass.look.mark
        secondColor: compass.look.caption
        turn: compass.panel.needleTurn
        Behavior on turn {
            enabled: !compass.look.reducedMotion
            Turning {}
        }
    }
    Item {
        objectName: compass.arrowView.objectName
        anchors.fill: parent
        visible: !compass.arrowView.hidden

        Shape {
            objectName: "arrowImageView"
            anchors.fill: parent
            shape: Shape.Arrow
            turn: compass.panel.arrowTurn
            Behavior on turn {
                enabled: !compass.look.reducedMotion
                Turning {}
            }
            color: compass.look.pointer
        }
    }
}
