// Where a thumb hits: no less than 44 points each way around what is drawn.
import QtQuick

MouseArea {
    anchors.centerIn: parent
    width: Math.max(44, parent.width)
    height: Math.max(44, parent.height)
    cursorShape: Qt.PointingHandCursor
}
