// What the host itself says, beside the panel.
import QtQuick

Item {
    id: root

    required property QtObject panel
    required property QtObject look

    implicitWidth: 359
    implicitHeight: line.implicitHeight

    Text {
        id: line
        text: [root.panel.badge, root.panel.title, root.panel.state, root.panel.warning].join("  ")
    }
}
