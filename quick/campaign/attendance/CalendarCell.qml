import QtQuick
import Orrelo.Kit

/// A day or the name of a weekday. Its font sizes are fractions of its height and ignore the text scale.
Item {
    id: cell

    required property CalendarCellBridge modelData
    readonly property bool hasBottom: modelData.bottomText.length > 0
    readonly property real bottomSize: height / 3.5

    Accessible.role: Accessible.Cell
    Accessible.name: modelData.accessibilityLabel
    Accessible.ignored: modelData.accessibilityLabel.length === 0

    // Most cells have none of this.
    Loader {
        active: !cell.modelData.isPlain

        sourceComponent: Item {
            width: cell.width
            height: cell.height

            Rectangle {
                anchors { fill: parent; margins: 1.5 }
                radius: Theme.cornerRadius
                color: cell.modelData.backgroundColor
                border { width: cell.modelData.borderWidth; color: cell.modelData.borderColor }
            }
            Loader {
                anchors { horizontalCenter: parent.horizontalCenter; verticalCenter: parent.verticalCenter }
                anchors.verticalCenterOffset: cell.hasBottom ? -cell.bottomSize * 0.45 : 0
                active: cell.modelData.icon !== null

                sourceComponent: KitImage {
                    width: cell.height / 1.5
                    height: width
                    model: cell.modelData.icon
                }
            }
            Text {
                anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: cell.height * 0.08 }
                visible: cell.hasBottom
                font { family: Theme.fontFamily; pixelSize: cell.bottomSize }
                color: cell.modelData.bottomColor
                text: cell.modelData.bottomText
                Accessible.ignored: true
            }
        }
    }
    Text {
        anchors { horizontalCenter: parent.horizontalCenter; verticalCenter: parent.verticalCenter }
        anchors.verticalCenterOffset: cell.hasBottom ? -cell.bottomSize * 0.52 : 0
        visible: !cell.modelData.hasIcon
        font { family: Theme.fontFamily; pixelSize: cell.height / 2.5 }
        color: cell.modelData.dayColor
        text: cell.modelData.day
        Accessible.ignored: true
    }
}
