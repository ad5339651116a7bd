// A value and its caption: below each other, or beside each other on one line.
import QtQuick
import Wayfell.Panel

Item {
    id: cell

    required property ShownRow row
    required property PanelStyle look
    property bool beside: false
    /// A flag says that it is the waypoint's.
    property bool flagged: false
    /// Those with which it shares the size of its letters: the largest that all have room for.
    property var peers: []
    property real wished: 20

    readonly property bool bold: look.heavy && !row.dim
    readonly property real captionSize: beside ? 9.5 : 10.5
    readonly property real captionGap: 5 * look.unit
    readonly property real captionWidth: {
        const wished = Math.ceil(captionSize * look.unit * look.widthAtOnePoint(row.caption, false));
        const left = width - captionGap - 11 * look.unit * look.widthAtOnePoint(row.value, bold);
        return Math.max(0, Math.min(wished + 1, left));
    }
    readonly property real fitting: fittingIn(width - value.start)
    readonly property real size: {
        let size = wished;
        for (const peer of peers) if (peer.row.shown) size = Math.min(size, peer.fitting);
        return Math.max(11, size);
    }

    function fittingIn(room) {
        return Math.floor(room / look.unit / look.widthAtOnePoint(row.value, bold));
    }

    height: Math.round((beside ? 17 : 38) * look.unit)

    Shape {
        visible: cell.flagged && cell.row.shown
        x: cell.look.rightToLeft ? cell.width - width : 0
        y: Math.round(2 * cell.look.unit)
        width: 9 * cell.look.unit
        height: 10 * cell.look.unit
        shape: Shape.Flag
        color: cell.row.dim ? cell.look.dim : cell.look.pointer
    }
    PanelText {
        row: cell.row
        look: cell.look
        caption: true
        size: cell.captionSize
        heavy: look.heavy && !cell.beside
        start: cell.flagged ? 12 * look.unit : 0
        // On its value's baseline, as far as its letters' fonts let it.
        y: cell.beside ? Math.max(0, Math.min(cell.height - height, value.baselineOffset - baselineOffset)) : 0
        width: cell.beside ? cell.captionWidth : cell.width - start
        height: 13 * cell.look.unit
        elide: Text.ElideRight
    }
    PanelText {
        id: value
        // What is too long all the same is broken between its parts.
        readonly property bool broken: cell.fitting < cell.size

        objectName: cell.objectName + "Value"
        row: cell.row
        look: cell.look
        fresh: cell.flagged ? cell.look.pointer : cell.look.value
        size: cell.size
        fontSizeMode: Text.FixedSize
        wrapMode: broken ? Text.WordWrap : Text.NoWrap
        lineHeightMode: broken ? Text.FixedHeight : Text.ProportionalHeight
        lineHeight: broken ? 12.5 * look.unit : 1
        start: cell.beside ? cell.captionWidth + cell.captionGap : 0
        y: cell.beside ? 0 : Math.round(13 * look.unit)
        width: cell.width - start
        height: cell.height - y
    }
}
