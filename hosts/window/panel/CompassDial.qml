// North, and the way to the waypoint, as seen by someone who looks along the heading. North is a
// letter on the ring, the way an arrow inside it, so that one never hides the other.
import QtQuick
import Wayfell.Panel

Item {
    id: compass

    required property PanelAdapter panel
    required property PanelStyle look

    readonly property color northColor: panel.northDim ? look.dim : look.mark

    component Turning: NumberAnimation {
        easing.type: Easing.OutQuad
    }

    Accessible.role: Accessible.Graphic
    Accessible.name: panel.compass.spoken

    Shape {
        id: rose
        anchors.fill: parent
        shape: Shape.Dial
        color: compass.look.value
        secondColor: compass.look.caption
        hollow: compass.panel.northDim
        turn: compass.panel.northTurn
        Behavior on turn {
            enabled: !compass.look.reducedMotion
            Turning { duration: compass.panel.compassTurnDuration }
        }
    }
    Text {
        readonly property real angle: rose.turn * Math.PI / 180
        readonly property real reach: compass.width * 0.39  // the ring's radius
        x: (compass.width - width) / 2 + reach * Math.sin(angle)
        y: (compass.height - height) / 2 - reach * Math.cos(angle)
        text: compass.panel.northLetter
        textFormat: Text.PlainText
        color: compass.northColor
        font.pixelSize: 13 * compass.look.unit
        font.bold: !compass.panel.northDim
        Accessible.ignored: true
    }
    Shape {
        anchors.fill: parent
        visible: !compass.panel.waypointKnown
        shape: Shape.Needle
        color: compass.northColor
        secondColor: compass.look.caption
        hollow: compass.panel.northDim
        turn: rose.turn
    }
    Shape {
        objectName: "waypointArrow"
        anchors.fill: parent
        visible: compass.panel.waypointKnown
        shape: Shape.Arrow
        color: compass.panel.waypointDim ? compass.look.dim : compass.look.pointer
        hollow: compass.panel.waypointDim
        turn: compass.panel.waypointTurn
        Behavior on turn {
            enabled: !compass.look.reducedMotion
            Turning { duration: compass.panel.compassTurnDuration }
        }
    }
}
