// A value under its caption.
import QtQuick
import Wayfell.Panel

Item {
    id: cell

    required property ShownRow row
    required property PanelStyle look
    property bool compact: false
    property color valueColor: look.value

    height: compact ? 34 : 38

    PanelText {
        id: caption
        row: cell.row
        look: cell.look
        caption: true
        size: 10.5
        width: parent.width
        height: cell.compact ? 12 : 13
        elide: Text.ElideRight
    }
    PanelText {
        objectName: cell.objectName + "Value"
        row: cell.row
        look: cell.look
        size: cell.compact ? 16 : 20
        y: caption.height
        width: parent.width
        height: parent.height - y
        color: cell.valueColor
    }
}
