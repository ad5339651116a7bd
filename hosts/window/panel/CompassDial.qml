// North, and the way to the waypoint, as seen by someone who looks along the heading.
import QtQuick
import Wayfell.Items

Item {
    id: compass

    required property QtObject panel
    required property QtObject look
    readonly property QtObject view: panel.outlets.compassRotatingView
    readonly property QtObject arrowView: panel.outlets.compassArrowView

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
            color: compass.look.pointer
        }
    }
}
