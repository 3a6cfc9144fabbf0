import QtQuick
import Orrelo.Kit

/// A button that opens another page: an icon, two lines of text and an arrow on a rounded background.
// PageEntryBridge.h repeats what determines the height.
PressArea {
    id: view

    required property PageEntryBridge model

    implicitHeight: panel.height
    name: model.accessibilityLabel
    role: Accessible.Link
    focusFrame: panel
    onPressed: view.model.didAction()

    Rectangle {
        id: panel

        readonly property real margin: 20
        readonly property real gap: 10

        x: 24
        width: parent.width - 2 * x
        height: Math.max(64, lines.height + 32)
        radius: Theme.cornerRadius
        color: Qt.rgba(0.945, 0.949, 0.953, 1)

        KitImage {
            id: icon
            anchors { left: parent.left; leftMargin: panel.margin; verticalCenter: parent.verticalCenter }
            width: hasContent ? 32 : 0
            height: 32
            model: view.model.icon
        }
        Column {
            id: lines
            anchors {
                left: icon.right; leftMargin: icon.hasContent ? panel.gap : 0
                right: arrow.left; rightMargin: panel.gap
                verticalCenter: parent.verticalCenter
            }
            spacing: 4

            KitText {
                width: parent.width
                size: 16
                font.bold: true
                text: view.model.title
                Accessible.ignored: true
            }
            KitText {
                width: parent.width
                size: 12
                text: view.model.label
                Accessible.ignored: true
            }
        }
        Image {
            id: arrow
            anchors { right: parent.right; rightMargin: panel.margin; verticalCenter: parent.verticalCenter }
            width: 16
            height: 16
            source: view.model.tapAsset
            sourceSize { width: 64; height: 64 }
        }
    }
}
