import QtQuick
import Orrelo.Kit

/// A campaign on a card: its icon, its label above its name, and an arrow. Only texts that are too long for a list are
/// cut.
PressArea {
    id: cell

    required property CampaignViewCellBridge modelData

    implicitHeight: Math.max(72, lines.height + 32)
    name: modelData.accessibilityLabel
    focusRadius: card.radius

    Rectangle {
        id: card
        anchors.fill: parent
        radius: 12
        color: "white"
        border { width: 1; color: Theme.divider }
    }
    KitImage {
        id: icon
        anchors { left: parent.left; leftMargin: 20; verticalCenter: parent.verticalCenter }
        width: cell.modelData.iconSize
        height: width
        model: cell.modelData.icon
    }
    Column {
        id: lines
        anchors {
            left: icon.right; leftMargin: 16
            right: arrow.left; rightMargin: 12
            verticalCenter: parent.verticalCenter
        }
        spacing: 4

        KitText {
            width: parent.width
            size: 12
            maximumLineCount: 10
            elide: Text.ElideRight
            text: cell.modelData.label
            Accessible.ignored: true
        }
        KitText {
            width: parent.width
            size: 16
            font.bold: true
            maximumLineCount: 10
            elide: Text.ElideRight
            text: cell.modelData.name
            Accessible.ignored: true
        }
    }
    Image {
        id: arrow
        anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
        width: 16
        height: 16
        source: cell.modelData.tapAsset
        sourceSize { width: 64; height: 64 }
    }
}
