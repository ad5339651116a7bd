// The choice of coordinate format.
import QtQuick
import Wayfell.Panel

Rectangle {
    id: control

    required property PanelAdapter panel
    required property PanelStyle look

    // All titles have letters of one size, which the longest has room for when it is chosen.
    readonly property real size: {
        const titles = panel.formatTitles;
        const widest = Math.max(...titles.map(title => look.widthAtOnePoint(title, true)));
        const fitting = Math.floor((width / titles.length / look.unit - 4) / widest);
        return Math.max(9, Math.min(13, fitting));
    }

    radius: 4 * control.look.unit
    color: look.field
    border.width: 1
    border.color: look.edge
    activeFocusOnTab: true
    Keys.onLeftPressed: panel.pickNext(look.rightToLeft ? 1 : -1)
    Keys.onRightPressed: panel.pickNext(look.rightToLeft ? -1 : 1)
    Accessible.role: Accessible.Grouping
    Accessible.name: panel.formats.spoken
    Accessible.focusable: true

    Row {
        anchors.fill: parent
        Repeater {
            model: control.panel.formatTitles

            // Names from outside, of which qmllint knows from Qt 6.5 on that a delegate sees them.
            // qmllint disable unqualified
            Rectangle {
                required property string modelData
                required property int index
                readonly property bool chosen: index === control.panel.format

                objectName: "format" + index
                width: control.width / control.panel.formatTitles.length
                height: control.height
                radius: 4 * control.look.unit
                color: chosen ? control.look.chosen : "transparent"
                Accessible.role: Accessible.RadioButton
                Accessible.name: control.panel.spokenFormats[index]
                Accessible.checkable: true
                Accessible.checked: chosen
                Accessible.onPressAction: control.panel.pickFormat(index)

                Text {
                    anchors.fill: parent
                    anchors.margins: 2 * control.look.unit
                    text: parent.modelData
                    textFormat: Text.PlainText
                    color: parent.chosen ? control.panel.chosenTitleColor : control.look.value
                    font.pixelSize: Math.floor(control.size * control.look.unit)
                    font.bold: parent.chosen
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    Accessible.ignored: true
                }
                TouchArea { onClicked: control.panel.pickFormat(parent.index) }
            }
            // qmllint enable unqualified
        }
    }
    FocusRing { look: control.look }
}
