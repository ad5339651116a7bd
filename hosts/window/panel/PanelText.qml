// The value of a row, or its caption. It shrinks rather than lose a digit, but never so far that it
// could not be read.
import QtQuick
import Wayfell.Panel

Text {
    required property ShownRow row
    required property PanelStyle look
    property bool caption: false
    property string value: row.value
    /// Of the letters, in the panel's points.
    property real size: 12
    /// Pixels from the side where reading starts.
    property real start: 0
    property bool heavy: look.heavy && !row.dim
    property color fresh: look.value

    x: look.rightToLeft ? parent.width - start - width : start
    visible: row.shown
    text: caption ? row.caption : look.isolated(value)
    color: caption ? look.caption : row.dim ? look.dim : fresh
    font.pixelSize: Math.floor(size * look.unit)
    font.bold: heavy || (row.bold && !caption)
    fontSizeMode: Text.Fit
    minimumPixelSize: (caption ? 9 : 11) * look.unit
    horizontalAlignment: row.centered && !caption ? Text.AlignHCenter : Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: row.spoken
    Accessible.ignored: caption
}
