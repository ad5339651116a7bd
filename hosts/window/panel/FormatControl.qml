// The choice of coordinate format.
import QtQuick

Rectangle {
    id: control

    required property QtObject panel
    required property QtObject view
    required property QtObject look

    objectName: view.objectName
    visible: !view.hidden
    radius: 4
    color: look.field
    border.width: 1
    border.color: look.edge
    activeFocusOnTab: true
    Keys.onLeftPressed: panel.pickNext(look.rightToLeft ? 1 : -1)
    Keys.onRightPressed: panel.pickNext(look.rightToLeft ? -1 : 1)
    Accessible.role: Accessible.Grouping
    Accessible.name: view.spoken
    Accessible.focusable: true

    Row {
        anchors.fill: parent
        Repeater {
            model: control.panel.segmentTitles

            Rectangle {
                required property string modelData
                required property int index
                readonly property bool chosen: index === control.panel.selectedSegment

                objectName: "segment" + index
                width: control.width / control.panel.segmentTitles.length
                height: control.height
                radius: 4
                color: chosen ? control.look.chosen : "transparent"
                Accessible.role: Accessible.RadioButton
                Accessible.name: control.panel.spokenSegments[index]
                Accessible.checkable: true
                Accessible.checked: chosen
                Accessible.onPressAction: control.panel.pick(index)

                Text {
                    anchors.fill: parent
                    anchors.margins: 2
                    text: parent.modelData
                    textFormat: Text.PlainText
                    color: parent.chosen ? control.panel.selectedTitleColor : control.look.value
                    font.pixelSize: Math.min(15, Math.round(12.5 * control.look.fontScale))
                    font.bold: parent.chosen
                    fontSizeMode: Text.Fit
                    minimumPixelSize: 6
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    Accessible.ignored: true
                }
                TouchArea { onClicked: control.panel.pick(parent.index) }
            }
        }
    }
    FocusRing { look: control.look }
}
