// The widget as it is seen: numbers on one side, directions on the other. Each item that shows a
// view bears the name of the view's outlet.
import QtQuick
import Wayfell.Items

FocusScope {
    id: root

    required property QtObject panel
    required property QtObject look
    readonly property QtObject views: panel.outlets
    readonly property bool compact: panel.compact

    readonly property real margin: 10
    readonly property real sideWidth: 100
    readonly property real mainWidth: width - 2 * margin - sideWidth - 8
    readonly property real sideStart: width - sideWidth - 4
    readonly property real columnWidth: (mainWidth - 8) / 2

    implicitWidth: 359
    height: panel.preferredHeight
    implicitHeight: height
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onPressed: event => event.accepted = panel.press(event.text)

    Rectangle {
        anchors.fill: parent
        radius: 4
        color: root.look.backing
        border.width: 1
        border.color: root.look.edge
    }

    // Directions.
    CompassTape {
        panel: root.panel
        look: root.look
        start: root.margin
        y: 10
        visible: !root.compact && !view.hidden
    }
    PanelText {
        view: root.views.headingLabel
        look: root.look
        visible: !root.compact && !view.hidden
        start: root.margin + 138
        y: 6
        width: root.sideStart - 6 - start
        height: 32
        size: 24
        font.weight: Font.DemiBold
        wrapMode: Text.WordWrap
    }
    CompassDial {
        panel: root.panel
        look: root.look
        x: root.look.rightToLeft ? 12 : root.width - width - 12
        y: 50
        width: 84
        height: 84
        visible: !root.compact && !view.hidden
    }

    // The position.
    Item {
        objectName: "dataView"
        x: root.look.rightToLeft ? root.width - width - root.margin : root.margin
        y: root.compact ? 4 : 44
        width: root.mainWidth
        height: root.compact ? 36 : 48
        visible: !root.views.dataView.hidden

        PanelText {
            id: positionCaption
            view: root.views.latLongLabel
            look: root.look
            visible: !root.compact && !view.hidden
            width: 62
            height: parent.height
            size: 10.5
            lineHeight: 1.7
            color: root.look.caption
        }
        PanelText {
            objectName: "userCoordinateLabel"
            view: root.views.userCoordinateLabel
            look: root.look
            text: view.lines
            start: positionCaption.visible ? 66 : 0
            width: parent.width - start
            height: parent.height
            size: root.compact ? 16 : 20
            font.weight: Font.DemiBold
        }
    }

    // The rows below it.
    Cell {
        captionView: root.views.altitudeNameLabel
        valueView: root.views.altitudeLabel
        look: root.look
        start: root.margin
        y: root.compact ? 40 : 98
        width: root.compact ? (root.width - 2 * root.margin - 24) / 4 : root.columnWidth
        size: root.compact ? 16 : 20
    }
    Cell {
        captionView: root.views.speedNameLabel
        valueView: root.views.speedLabel
        look: root.look
        start: root.compact ? root.margin + width + 8 : root.margin + root.columnWidth + 8
        y: root.compact ? 40 : 98
        width: root.compact ? (root.width - 2 * root.margin - 24) / 4 : root.columnWidth
        size: root.compact ? 16 : 20
    }
    Item {
        objectName: "miniTrackDataView"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: root.margin
        y: 40
        height: 36
        visible: !root.views.miniTrackDataView.hidden
        Cell {
            captionView: root.views.miniTimeNameLabel
            valueView: root.views.miniTimeLabel
            look: root.look
            width: (parent.width - 24) / 4
            start: 2 * (width + 8)
            size: 16
        }
        Cell {
            captionView: root.views.miniDistanceNameLabel
            valueView: root.views.miniDistanceLabel
            look: root.look
            width: (parent.width - 24) / 4
            start: 3 * (width + 8)
            size: 16
        }
    }
    Item {
        objectName: "trackDataView"
        x: root.look.rightToLeft ? root.width - width - root.margin : root.margin
        y: 142
        width: root.mainWidth
        height: 40
        visible: !root.views.trackDataView.hidden
        Cell {
            captionView: root.views.timeNameLabel
            valueView: root.views.timeLabel
            look: root.look
            width: root.columnWidth
        }
        Cell {
            captionView: root.views.distanceNameLabel
            valueView: root.views.distanceLabel
            look: root.look
            start: root.columnWidth + 8
            width: root.columnWidth
        }
    }
    Item {
        objectName: "waypointDataView"
        x: root.look.rightToLeft ? root.width - width - root.sideStart : root.sideStart
        y: 136
        width: root.sideWidth
        height: 64
        visible: !root.compact && !root.views.waypointDataView.hidden
        Cell {
            captionView: root.views.waypointDistanceNameLabel
            valueView: root.views.waypointDistanceLabel
            look: root.look
            width: 54
            start: 0
            size: 15
        }
        Cell {
            captionView: root.views.etaNameLabel
            valueView: root.views.etaLabel
            look: root.look
            width: 36
            start: 60
            size: 15
        }
    }

    FormatControl {
        panel: root.panel
        view: root.views.coordinateControl
        look: root.look
        visible: !root.compact && !view.hidden
        x: root.margin
        y: 204
        width: root.width - 2 * root.margin
        height: 32
    }
    PanelText {
        view: root.views.addressLabel
        look: root.look
        visible: !root.compact && !view.hidden
        start: root.margin
        y: 244
        width: root.width - 2 * root.margin
        height: 36
        size: 12.5
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }

    DrawnView {
        objectName: "cornerView"
        view: root.views.cornerView
        x: root.look.rightToLeft ? 4 : root.width - width - 4
        y: 4
        width: 100
        height: 40
        visible: !view.hidden
        OpenPlate {
            view: root.compact ? root.views.openMiniView : root.views.openView
            labelView: root.compact ? root.views.openMiniLabel : root.views.openLabel
            look: root.look
            x: root.look.rightToLeft ? 44 : 4
            y: 4
            width: 52
            height: 32
            onTapped: root.panel.tap(labelView.objectName)
        }
        Disclosure {
            view: root.views.toggleViewButton
            look: root.look
            x: root.look.rightToLeft ? 4 : 60
            y: 4
            width: 36
            height: 32
            onTapped: root.panel.tap(view.objectName)
        }
    }
}
