// A view's text. It shrinks rather than lose a digit.
import QtQuick

Text {
    required property QtObject view
    required property QtObject look
    property real size: 12
    /// From the side where reading starts.
    property real start: 0
    property bool heavy: look.heavy

    objectName: view.objectName
    x: look.rightToLeft ? parent.width - start - width : start
    visible: !view.hidden
    text: view.text
    color: look.value
    font.pixelSize: Math.round(size * look.fontScale)
    font.bold: heavy || view.bold
    fontSizeMode: Text.Fit
    minimumPixelSize: 6
    horizontalAlignment: view.centered ? Text.AlignHCenter : Text.AlignLeft
    verticalAlignment: Text.AlignVCenter
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: view.spoken
    Accessible.ignored: view.spoken === ""
}
