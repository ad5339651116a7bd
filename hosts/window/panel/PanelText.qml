// The value of a row, or its caption. It shrinks rather than lose a digit.
import QtQuick
import Wayfell.Panel

Text {
    required property ShownRow row
    required property PanelStyle look
    property bool caption: false
    property real size: 12
    /// From the side where reading starts.
    property real start: 0
    property bool heavy: look.heavy

    x: look.rightToLeft ? parent.width - start - width : start
    visible: row.shown
    text: caption ? row.caption : row.value
    color: caption ? look.caption : look.value
    font.pixelSize: Math.round(size * look.fontScale)
    font.bold: heavy || (row.bold && !caption)
    fontSizeMode: Text.Fit
    minimumPixelSize: 6
    horizontalAlignment: row.centered && !caption ? Text.AlignHCenter : Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: row.spoken
    Accessible.ignored: caption
}
