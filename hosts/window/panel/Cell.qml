// A value under its caption.
import QtQuick

Item {
    id: cell

    required property QtObject captionView
    required property QtObject valueView
    required property QtObject look
    property bool compact: false
    property color valueColor: look.value

    height: compact ? 34 : 38

    PanelText {
        id: caption
        view: cell.captionView
        look: cell.look
        size: 10.5
        width: parent.width
        height: cell.compact ? 12 : 13
        color: cell.look.caption
        elide: Text.ElideRight
    }
    PanelText {
        view: cell.valueView
        look: cell.look
        size: cell.compact ? 16 : 20
        y: caption.height
        width: parent.width
        height: parent.height - y
        color: cell.valueColor
    }
}
