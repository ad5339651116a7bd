// The widget as it is seen: the position and the numbers on one side, where to go on the other.
// Each item that shows a view bears the name of the view's outlet.
import QtQuick
import Wayfell.Items

FocusScope {
    id: root

    required property QtObject panel
    required property QtObject look
    readonly property QtObject views: panel.outlets
    readonly property bool compact: panel.compact

    readonly property real margin: 10
    readonly property real gap: 8
    readonly property real sideWidth: 100
    readonly property real contentWidth: width - 2 * margin
    readonly property real mainWidth: width - margin - gap - sideWidth - 2
    readonly property real thirdWidth: (contentWidth - 2 * gap) / 3
    readonly property real quarterWidth: (contentWidth - 3 * gap) / 4
    readonly property real firstRow: compact ? 42 : 122
    readonly property real secondRow: 164
    readonly property real cellWidth: compact ? quarterWidth : thirdWidth

    // A place counted from the side where reading starts, as an x.
    function placed(start, itemWidth) {
        return look.rightToLeft ? width - start - itemWidth : start
    }

    implicitWidth: 359
    implicitHeight: panel.preferredHeight
    height: panel.preferredHeight
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

    component Hairline: Rectangle {
        x: root.margin
        width: root.contentWidth
        height: 1
        visible: !root.compact
        color: root.look.edge
    }
    Hairline { y: 119 }
    Hairline { y: 161 }
    Hairline { y: 203 }

    Item {
        id: positionArea
        objectName: "dataView"
        x: root.placed(root.margin, width)
        y: root.compact ? 3 : 6
        width: root.mainWidth
        height: root.compact ? 38 : 56
        visible: !root.views.dataView.hidden

        Column {
            id: positionCaption
            objectName: "latLongLabel"
            readonly property QtObject view: root.views.latLongLabel
            readonly property var captions: view.text.split("\n")
            x: root.look.rightToLeft ? parent.width - width : 0
            visible: !root.compact && !view.hidden
            width: Math.min(60, parent.width * 0.32)
            Repeater {
                model: positionCaption.captions
                PanelText {
                    required property string modelData
                    objectName: "latLongLine"
                    view: positionCaption.view
                    look: root.look
                    text: modelData
                    width: positionCaption.width
                    height: positionArea.height / positionCaption.captions.length
                    size: 10.5
                    color: root.look.caption
                }
            }
        }
        PanelText {
            id: position
            view: root.views.userCoordinateLabel
            look: root.look
            text: view.lines
            start: positionCaption.visible ? positionCaption.width + 6 : 0
            width: zone.visible ? (parent.width - start) / 3 : parent.width - start
            height: parent.height
            size: root.compact ? 16 : 24
            heavy: true
            wrapMode: Text.WordWrap
        }
        PanelText {
            id: zone
            view: root.views.utmZoneLabel
            look: root.look
            visible: !view.hidden && text !== ""
            start: parent.width - width
            width: (parent.width - 64) * 2 / 3
            height: parent.height
            size: root.compact ? 16 : 20
        }
    }

    CompassTape {
        panel: root.panel
        look: root.look
        x: root.placed(root.margin, width)
        y: 78
        visible: !root.compact && !view.hidden
    }
    PanelText {
        view: root.views.headingLabel
        look: root.look
        visible: !root.compact && !view.hidden
        start: root.margin + 130 + root.gap
        y: 72
        width: Math.max(20, dial.reach - start)
        height: 36
        size: 24
        heavy: true
        wrapMode: Text.WordWrap
    }
    CompassDial {
        id: dial
        // How far what stands before it may go.
        readonly property real reach: root.width - root.margin - width - root.gap
        panel: root.panel
        look: root.look
        x: root.placed(root.width - root.margin - width, width)
        y: 45
        width: 71
        height: 71
        visible: !root.compact && !view.hidden
    }

    Cell {
        captionView: root.views.altitudeNameLabel
        valueView: root.views.altitudeLabel
        look: root.look
        x: root.placed(root.margin, width)
        y: root.firstRow
        width: root.cellWidth
        compact: root.compact
    }
    Cell {
        captionView: root.views.speedNameLabel
        valueView: root.views.speedLabel
        look: root.look
        x: root.placed(root.margin + root.cellWidth + root.gap, width)
        y: root.firstRow
        width: root.cellWidth
        compact: root.compact
    }
    Item {
        objectName: "miniTrackDataView"
        x: root.placed(root.margin + 2 * (root.quarterWidth + root.gap), width)
        y: root.firstRow
        width: 2 * root.quarterWidth + root.gap
        height: 34
        visible: !root.views.miniTrackDataView.hidden

        Cell {
            captionView: root.views.miniTimeNameLabel
            valueView: root.views.miniTimeLabel
            look: root.look
            anchors.left: parent.left
            width: root.quarterWidth
            compact: true
        }
        Cell {
            captionView: root.views.miniDistanceNameLabel
            valueView: root.views.miniDistanceLabel
            look: root.look
            anchors.right: parent.right
            width: root.quarterWidth
            compact: true
        }
    }
    Item {
        objectName: "trackDataView"
        x: root.placed(root.margin, width)
        y: root.secondRow
        width: 2 * root.thirdWidth + root.gap
        height: 38
        visible: !root.views.trackDataView.hidden

        Cell {
            captionView: root.views.timeNameLabel
            valueView: root.views.timeLabel
            look: root.look
            anchors.left: parent.left
            width: root.thirdWidth
        }
        Cell {
            captionView: root.views.distanceNameLabel
            valueView: root.views.distanceLabel
            look: root.look
            anchors.right: parent.right
            width: root.thirdWidth
        }
    }
    // In the arrow's column, and in its colour.
    Item {
        objectName: "waypointDataView"
        x: root.placed(root.width - root.margin - width, width)
        y: root.firstRow
        width: root.thirdWidth
        height: root.secondRow - root.firstRow + 38
        visible: !root.compact && !root.views.waypointDataView.hidden

        Cell {
            captionView: root.views.waypointDistanceNameLabel
            valueView: root.views.waypointDistanceLabel
            look: root.look
            width: parent.width
            valueColor: root.look.pointer
        }
        Cell {
            captionView: root.views.etaNameLabel
            valueView: root.views.etaLabel
            look: root.look
            y: root.secondRow - root.firstRow
            width: parent.width
            valueColor: root.look.pointer
        }
    }

    FormatControl {
        panel: root.panel
        view: root.views.coordinateControl
        look: root.look
        x: root.margin
        y: 210
        width: root.contentWidth
        height: 32
        visible: !root.compact && !view.hidden
    }
    PanelText {
        view: root.views.addressLabel
        look: root.look
        visible: !root.compact && !view.hidden
        start: root.margin
        y: 246
        width: root.contentWidth
        height: 36
        size: 12.5
        minimumPixelSize: 10
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }

    DrawnView {
        objectName: "cornerView"
        view: root.views.cornerView
        x: root.placed(root.width - width - 2, width)
        y: 2
        width: root.sideWidth
        height: 40
        visible: !view.hidden

        OpenPlate {
            view: root.compact ? root.views.openMiniView : root.views.openView
            labelView: root.compact ? root.views.openMiniLabel : root.views.openLabel
            look: root.look
            anchors.left: parent.left
            anchors.leftMargin: 4
            y: 4
            width: 52
            height: 32
            onTapped: root.panel.tap(labelView.objectName)
        }
        Disclosure {
            view: root.views.toggleViewButton
            look: root.look
            anchors.right: parent.right
            anchors.rightMargin: 4
            y: 4
            width: 36
            height: 32
            onTapped: root.panel.tap(view.objectName)
        }
    }

    // Last, so that Tab comes to it last.
    PositionCopy {
        panel: root.panel
        look: root.look
        anchors.fill: positionArea
        visible: positionArea.visible
    }
}
