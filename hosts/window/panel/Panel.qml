// The widget as it is seen: the position and the numbers on one side, where to go on the other.
// It is laid out in its own points, of which 280 to 359 make its width (PanelStyle::unit).
import QtQuick
import Wayfell.Panel

FocusScope {
    id: root

    required property PanelAdapter panel
    required property PanelStyle look
    readonly property bool compact: panel.compact

    readonly property real margin: at(10)
    readonly property real gap: at(8)
    readonly property real contentWidth: width - 2 * margin
    readonly property real mainWidth: corner.reach - margin
    readonly property real firstRow: compact ? at(42) : at(122)

    // The cells stand in a grid. The compact layout has all in one row, unless that would leave
    // them letters too small to be read at a glance.
    readonly property var compactCells: [altitude, speed, trackTime, trackDistance]
    readonly property bool dense:
        compact && compactCells.some(cell => cell.fittingIn(cellWidthOf(4)) < 13)
    readonly property int columns: !compact ? 3 : dense ? 2 : 4
    readonly property real rowHeight: dense ? at(17) : at(42)
    readonly property real cellWidth: cellWidthOf(columns)

    // So many points, in whole pixels.
    function at(points) {
        return Math.round(points * look.unit)
    }
    // A place counted from the side where reading starts, as an x.
    function placed(start, itemWidth) {
        return look.rightToLeft ? width - start - itemWidth : start
    }
    function cellWidthOf(columns) {
        return Math.floor((contentWidth - (columns - 1) * gap) / columns)
    }

    implicitWidth: 359
    implicitHeight: at(panel.preferredHeight)
    height: implicitHeight
    LayoutMirroring.enabled: look.rightToLeft
    LayoutMirroring.childrenInherit: true

    Binding {
        target: root.look
        property: "width"
        value: root.width
    }

    Rectangle {
        anchors.fill: parent
        radius: root.at(4)
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

        Hairline { y: root.at(119); color: root.look.edge }
        Hairline { y: root.at(161); color: root.look.edge }
        Hairline { y: root.at(203); color: root.look.edge }
    }

    // What Tab goes through is in the order in which it is read.
    PositionCopy {
        panel: root.panel
        look: root.look
        anchors.fill: position
        visible: position.visible
    }
    Position {
        id: position
        objectName: "position"
        panel: root.panel
        look: root.look
        x: root.placed(root.margin, width)
        y: root.compact ? root.at(3) : root.at(4)
        compact: root.compact
        width: root.mainWidth * (zone.visible ? 0.3 : 1)
        height: root.compact ? root.at(38) : root.at(72)
        visible: root.panel.position.shown
    }
    PanelText {
        id: zone
        row: root.panel.zone
        look: root.look
        visible: row.shown && row.value !== ""
        start: root.margin + position.width + root.gap
        width: root.margin + root.mainWidth - start
        y: position.y
        height: root.compact ? root.at(38) : root.at(56)
        size: row.fontSize > 0 ? row.fontSize : 16
    }
    Corner {
        id: corner
        objectName: "corner"
        // How far what stands before it may go.
        readonly property real reach: root.width - width - root.at(6)
        panel: root.panel
        unit: root.look.unit
        x: root.placed(root.width - width, width)
        width: root.at(104)
        height: root.at(42)

        OpenPlate {
            objectName: "open"
            panel: root.panel
            look: root.look
            anchors.left: parent.left
            anchors.leftMargin: root.at(4)
            y: root.at(4)
            width: root.at(46)
            height: root.at(34)
        }
        // As far from the edge as a pointer needs that makes the window wider.
        Disclosure {
            objectName: "layout"
            panel: root.panel
            look: root.look
            anchors.right: parent.right
            anchors.rightMargin: root.at(6)
            y: root.at(4)
            width: root.at(44)
            height: root.at(34)
        }
    }

    CompassTape {
        id: tape
        objectName: "tapeFrame"
        panel: root.panel
        look: root.look
        x: root.placed(root.margin, width)
        y: root.at(78)
        visible: !root.compact
    }
    PanelText {
        objectName: "heading"
        row: root.panel.heading
        look: root.look
        start: root.margin + tape.width + root.gap
        y: root.at(74)
        width: dial.reach - start
        height: root.at(32)
        size: 24
        heavy: !row.dim
        wrapMode: Text.WordWrap
    }
    CompassDial {
        id: dial
        objectName: "compass"
        readonly property real reach: root.width - root.margin - width - root.at(4)
        panel: root.panel
        look: root.look
        x: root.placed(root.width - root.margin - width, width)
        y: root.at(44)
        width: root.at(74)
        height: root.at(74)
        visible: root.panel.compass.shown
    }

    // Names from outside, of which qmllint knows from Qt 6.5 on that a component sees them.
    // qmllint disable unqualified
    component GridCell: Cell {
        // How many stand before it.
        required property int place
        readonly property int column: place % root.columns
        look: root.look
        x: root.placed(root.margin + column * (root.cellWidth + root.gap), width)
        y: root.firstRow + Math.floor(place / root.columns) * root.rowHeight
        width: root.cellWidth
        beside: root.dense
        wished: !root.compact ? 20 : root.dense ? 13 : 16
    }
    // qmllint enable unqualified
    GridCell {
        id: altitude
        objectName: "altitude"
        row: root.panel.altitude
        place: 0
        peers: root.compact ? root.compactCells : [altitude, speed, waypointDistance]
    }
    GridCell {
        id: speed
        objectName: "speed"
        row: root.panel.speed
        place: 1
        peers: altitude.peers
    }
    GridCell {
        id: waypointDistance
        objectName: "waypointDistance"
        row: root.panel.waypointDistance
        place: 2
        flagged: true
        peers: altitude.peers
    }
    GridCell {
        id: trackTime
        objectName: "trackTime"
        row: root.panel.trackTime
        place: root.compact ? 2 : 3
        peers: root.compact ? root.compactCells : [trackTime, trackDistance, eta]
    }
    GridCell {
        id: trackDistance
        objectName: "trackDistance"
        row: root.panel.trackDistance
        place: root.compact ? 3 : 4
        peers: trackTime.peers
    }
    GridCell {
        id: eta
        objectName: "eta"
        row: root.panel.eta
        place: 5
        flagged: true
        peers: trackTime.peers
    }

    FormatControl {
        objectName: "formats"
        panel: root.panel
        look: root.look
        x: root.margin
        y: root.at(210)
        width: root.contentWidth
        height: root.at(32)
        visible: !root.compact
    }
    PanelText {
        objectName: "address"
        row: root.panel.address
        look: root.look
        start: root.margin
        y: root.at(246)
        width: root.contentWidth
        height: root.at(36)
        size: 13
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }
}
