// North, and the way to the waypoint, as seen by someone who looks along the heading.
import QtQuick
import Wayfell.Panel

Item {
    id: compass

    required property PanelAdapter panel
    required property PanelStyle look

    component Turning: NumberAnimation {
        easing.type: Easing.OutQuad
    }

    Accessible.role: Accessible.Graphic
    Accessible.name: panel.compass.spoken

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
        turn: compass.panel.northTurn
        Behavior on turn {
            enabled: !compass.look.reducedMotion
            Turning { duration: compass.panel.compassTurnDuration }
        }
    }
    Shape {
        objectName: "waypointArrow"
        anchors.fill: parent
        visible: compass.panel.waypointKnown
        shape: Shape.Arrow
        color: compass.look.pointer
        turn: compass.panel.waypointTurn
        Behavior on turn {
            enabled: !compass.look.reducedMotion
            Turning { duration: compass.panel.compassTurnDuration }
        }
    }
}
