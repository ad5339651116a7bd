// The position: two coordinates with their names, or a reference on lines of its own.
import QtQuick
import Wayfell.Panel

Item {
    id: position

    required property PanelAdapter panel
    required property PanelStyle look
    property bool compact: false

    readonly property ShownRow row: panel.position
    readonly property bool bold: !row.dim || row.bold
    readonly property var lines: panel.positionLines
    readonly property var captions: compact || row.caption === "" ? [] : row.caption.split("\n")
    readonly property int lineCount: Math.max(lines.length, named ? captions.length : 0)

    // A coordinate's name stands before it, or above it where that leaves it larger letters. What
    // names no line stands below all.
    readonly property bool named: captions.length > 0 && panel.linesAreNamed
    readonly property bool above: named && fitting(width - start) < 16
    readonly property real start: (10.5 * widest(captions, look.heavy) + 8) * look.unit
    readonly property real wished: row.fontSize > 0 ? row.fontSize : compact ? 16 : 24
    readonly property real size: fitting(named && !above ? width - start : width)
    readonly property real lineHeight: Math.round((compact ? 19 : above ? 34 : 28) * look.unit)
    readonly property real captionHeight: above ? Math.round(12 * look.unit) : 0

    function widest(texts, bold) {
        return texts.reduce((widest, text) => Math.max(widest, look.widthAtOnePoint(text, bold)), 0);
    }
    function fitting(room) {
        return Math.max(11, Math.min(wished, Math.floor(room / look.unit / widest(lines, bold))));
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: row.spoken

    // Names from outside, of which qmllint knows from Qt 6.5 on that components see them.
    // qmllint disable unqualified
    component Caption: PanelText {
        row: position.row
        look: position.look
        caption: true
        size: position.above ? 9.5 : 10.5
        height: Math.round(12 * look.unit)
        Accessible.ignored: true
    }

    Repeater {
        model: position.lineCount
        Item {
            id: line
            required property int index

            y: index * position.lineHeight
            width: position.width
            height: position.lineHeight

            Caption {
                visible: position.named
                text: position.captions[line.index] ?? ""
                width: position.above ? parent.width : position.start - 6 * look.unit
                y: position.above ? 0 : value.y + value.baselineOffset - baselineOffset
            }
            PanelText {
                id: value
                row: position.row
                look: position.look
                value: position.lines[line.index] ?? ""
                size: position.size
                heavy: position.bold
                start: position.named && !position.above ? position.start : 0
                y: position.captionHeight
                width: parent.width - start
                height: parent.height - y
                Accessible.ignored: true
            }
        }
    }
    // qmllint enable unqualified
    Caption {
        visible: position.captions.length > 0 && !position.named
        text: position.captions.join("  ")
        color: position.look.dim
        heavy: false
        y: position.lineCount * position.lineHeight + 1
        width: parent.width
        elide: Text.ElideRight
    }
}
