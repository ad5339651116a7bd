// The widget as it is seen: the position and the numbers on one side, where to go on the other.
import QtQuick
import Wayfell.Panel

FocusScope {
    id: root

    required property PanelAdapter panel
    required property PanelStyle look
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

    Rectangle {
        anchors.fill: parent
        radius: 4
        color: root.look.backing
        border.width: 1
        border.color: root.look.edge
    }

    component Hairline: Rectangle {
        width: parent.width
        height: 1
    }
    Item {
        x: root.margin
        width: root.contentWidth
        visible: !root.compact

        Hairline { y: 119; color: root.look.edge }
        Hairline { y: 161; color: root.look.edge }
        Hairline { y: 203; color: root.look.edge }
    }

    Item {
        id: positionArea
        objectName: "positionArea"
        x: root.placed(root.margin, width)
        y: root.compact ? 3 : 6
        width: root.mainWidth
        height: root.compact ? 38 : 56
        visible: root.panel.position.shown

        Column {
            id: positionCaption
            objectName: "positionCaption"
            readonly property var captions: root.panel.position.caption.split("\n")
            x: root.look.rightToLeft ? parent.width - width : 0
            visible: !root.compact && root.panel.position.caption !== ""
            width: Math.min(60, parent.width * 0.32)
            Repeater {
                model: positionCaption.captions
                // Names from outside, of which qmllint knows from Qt 6.5 on that a delegate sees them.
                // qmllint disable unqualified
                PanelText {
                    required property string modelData
                    row: root.panel.position
                    look: root.look
                    caption: true
                    text: modelData
                    width: positionCaption.width
                    height: positionArea.height / positionCaption.captions.length
                    size: 10.5
                }
                // qmllint enable unqualified
            }
        }
        PanelText {
            id: position
            objectName: "position"
            row: root.panel.position
            look: root.look
            start: positionCaption.visible ? positionCaption.width + 6 : 0
            width: zone.visible ? (parent.width - start) / 3 : parent.width - start
            height: parent.height
            size: root.compact ? 16 : 24
            heavy: true
            wrapMode: Text.WordWrap
        }
        PanelText {
            id: zone
            row: root.panel.zone
            look: root.look
            visible: text !== ""
            start: parent.width - width
            width: (parent.width - 64) * 2 / 3
            height: parent.height
            size: root.compact ? 16 : 20
        }
    }

    CompassTape {
        objectName: "tapeFrame"
        panel: root.panel
        look: root.look
        x: root.placed(root.margin, width)
        y: 78
        visible: !root.compact
    }
    PanelText {
        objectName: "heading"
        row: root.panel.heading
        look: root.look
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
        objectName: "compass"
        // How far what stands before it may go.
        readonly property real reach: root.width - root.margin - width - root.gap
        panel: root.panel
        look: root.look
        x: root.placed(root.width - root.margin - width, width)
        y: 45
        width: 71
        height: 71
        visible: root.panel.compass.shown
    }

    Cell {
        objectName: "altitude"
        row: root.panel.altitude
        look: root.look
        x: root.placed(root.margin, width)
        y: root.firstRow
        width: root.cellWidth
        compact: root.compact
    }
    Cell {
        objectName: "speed"
        row: root.panel.speed
        look: root.look
        x: root.placed(root.margin + root.cellWidth + root.gap, width)
        y: root.firstRow
        width: root.cellWidth
        compact: root.compact
    }
    Item {
        objectName: "track"
        x: root.placed(root.compact ? root.margin + 2 * (root.quarterWidth + root.gap) : root.margin, width)
        y: root.compact ? root.firstRow : root.secondRow
        width: 2 * root.cellWidth + root.gap
        height: root.compact ? 34 : 38

        Cell {
            objectName: "trackTime"
            row: root.panel.trackTime
            look: root.look
            anchors.left: parent.left
            width: root.cellWidth
            compact: root.compact
        }
        Cell {
            objectName: "trackDistance"
            row: root.panel.trackDistance
            look: root.look
            anchors.right: parent.right
            width: root.cellWidth
            compact: root.compact
        }
    }
    // In the arrow's column, and in its colour.
    Item {
        objectName: "waypoint"
        x: root.placed(root.width - root.margin - width, width)
        y: root.firstRow
        width: root.thirdWidth
        height: root.secondRow - root.firstRow + 38
        visible: root.panel.waypointDistance.shown

        Cell {
            objectName: "waypointDistance"
            row: root.panel.waypointDistance
            look: root.look
            width: parent.width
            valueColor: root.look.pointer
        }
        Cell {
            objectName: "eta"
            row: root.panel.eta
            look: root.look
            y: root.secondRow - root.firstRow
            width: parent.width
            valueColor: root.look.pointer
        }
    }

    FormatControl {
        objectName: "formats"
        panel: root.panel
        look: root.look
        x: root.margin
        y: 210
        width: root.contentWidth
        height: 32
        visible: !root.compact
    }
    PanelText {
        objectName: "address"
        row: root.panel.address
        look: root.look
        start: root.margin
        y: 246
        width: root.contentWidth
        height: 36
        size: 12.5
        minimumPixelSize: 10
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }

    Corner {
        objectName: "corner"
        panel: root.panel
        x: root.placed(root.width - width - 2, width)
        y: 2
        width: root.sideWidth
        height: 40

        OpenPlate {
            objectName: "open"
            panel: root.panel
            look: root.look
            anchors.left: parent.left
            anchors.leftMargin: 4
            y: 4
            width: 52
            height: 32
        }
        Disclosure {
            objectName: "layout"
            panel: root.panel
            look: root.look
            anchors.right: parent.right
            anchors.rightMargin: 4
            y: 4
            width: 36
            height: 32
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
