// The widget as it is seen. Each item that shows a view bears the name of the view's outlet.
import QtQuick

FocusScope {
    id: root

    required property QtObject panel
    required property QtObject look
    readonly property var views: panel.outlets

    implicitWidth: 359
    height: panel.preferredHeight

    Text {
        objectName: "userCoordinateLabel"
        text: root.views.userCoordinateLabel.text
    }
}
