// A value under its caption.
import QtQuick

Item {
    id: cell

    required property QtObject captionView
    required property QtObject valueView
    required property QtObject look
    property real size: 19
    property real start: 0
    readonly property real captionHeight: 13

    x: look.rightToLeft ? parent.width - start - width : start
    height: 36

    PanelText {
        view: cell.captionView
        look: cell.look
        size: 10.5
        width: parent.width
        height: cell.captionHeight
        color: look.caption
        elide: Text.ElideRight
    }
    PanelText {
        view: cell.valueView
        look: cell.look
        size: cell.size
        y: cell.captionHeight
        width: parent.width
        height: parent.height - y
        font.weight: Font.DemiBold
    }
}
