import QtQuick
import Orrelo

/// A day, or a weekday's name. Its fonts are shares of its height, whatever the text scale.
Item {
    id: cell

    required property string day
    required property color dayColor
    required property string bottomText
    required property color bottomColor
    required property color backgroundColor
    required property real borderWidth
    required property color borderColor
    required property bool hasIcon
    /// Null where the service names none.
    required property ImageBridge icon
    required property string accessibilityLabel
    required property real dayFontShare
    required property real bottomFontShare
    required property real iconShare

    readonly property bool hasBottom: bottomText.length > 0
    readonly property real bottomSize: height * bottomFontShare

    Accessible.role: Accessible.Cell
    Accessible.name: accessibilityLabel
    Accessible.ignored: accessibilityLabel.length === 0

    Rectangle {
        anchors { fill: parent; margins: 1.5 }
        radius: Theme.cornerRadius
        color: cell.backgroundColor
        border { width: cell.borderWidth; color: cell.borderColor }
    }
    Loader {
        anchors { horizontalCenter: parent.horizontalCenter; verticalCenter: parent.verticalCenter }
        anchors.verticalCenterOffset: cell.hasBottom ? -cell.bottomSize * 0.45 : 0
        active: cell.icon !== null

        sourceComponent: KitImage {
            width: cell.height * cell.iconShare
            height: width
            model: cell.icon
        }
    }
    Text {
        anchors { horizontalCenter: parent.horizontalCenter; verticalCenter: parent.verticalCenter }
        anchors.verticalCenterOffset: cell.hasBottom ? -cell.bottomSize * 0.52 : 0
        visible: !cell.hasIcon
        font { family: Theme.fontFamily; pixelSize: cell.height * cell.dayFontShare }
        color: cell.dayColor
        text: cell.day
        Accessible.ignored: true
    }
    Text {
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: cell.height * 0.08 }
        visible: cell.hasBottom
        font { family: Theme.fontFamily; pixelSize: cell.bottomSize }
        color: cell.bottomColor
        text: cell.bottomText
        Accessible.ignored: true
    }
}
