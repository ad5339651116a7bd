// "Open", on its plate.
import QtQuick

Rectangle {
    id: plate

    required property QtObject view
    required property QtObject labelView
    required property QtObject look
    signal tapped

    objectName: view.objectName
    radius: view.cornerRadius
    color: look.plate
    activeFocusOnTab: true
    Keys.onSpacePressed: tapped()
    Keys.onReturnPressed: tapped()
    Keys.onEnterPressed: tapped()
    Accessible.role: Accessible.Button
    Accessible.name: labelView.spoken
    Accessible.focusable: true
    Accessible.onPressAction: tapped()

    PanelText {
        view: plate.labelView
        look: plate.look
        size: 12.5
        start: 5
        width: parent.width - 10
        height: parent.height
        horizontalAlignment: Text.AlignHCenter
        heavy: true
        color: look.plateText
        Accessible.ignored: true
    }
    TouchArea { onClicked: plate.tapped() }
    FocusRing { look: plate.look }
}
