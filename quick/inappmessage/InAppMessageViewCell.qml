import QtQuick
import Orrelo.Kit

/// A page of the carousel: a square picture in its middle that can be pressed. The ground around it is not part
/// of it.
FocusScope {
    id: cell

    required property InAppMessageCellBridge modelData
    required property int index
    /// The square in which the picture stands.
    required property rect container
    property bool isCurrent

    signal pressed()
    signal pressedBeside()
    signal turned(int count)

    Component.onCompleted: modelData.loadImage()

    MouseArea {
        anchors.fill: parent
        onClicked: cell.pressedBeside()
    }
    // Keeps presses on the picture from the area around it, and leaves drags to the carousel.
    MouseArea {
        anchors.fill: picture
    }
    PressArea {
        id: picture
        objectName: cell.modelData.accessibilityIdentifier
        x: cell.container.x + (cell.container.width - width) / 2
        y: cell.container.y + (cell.container.height - height) / 2
        width: Math.max(0, cell.container.width - cell.modelData.inset)
        height: width
        focus: true
        activeFocusOnTab: false
        focusColor: "white"
        name: cell.modelData.accessibilityLabel
        Accessible.ignored: !cell.isCurrent
        Accessible.onNextPageAction: cell.turned(1)
        Accessible.onPreviousPageAction: cell.turned(-1)
        onPressed: cell.pressed()

        Rectangle {
            anchors.fill: parent
            visible: drawing.bitmapSize.width <= 0
            radius: Theme.cornerRadius
            color: Qt.rgba(1, 1, 1, 0.12)
        }
        Item {
            anchors.fill: parent
            clip: true

            KitImage {
                id: drawing

                readonly property real enlargement: Math.max(parent.width / bitmapSize.width, parent.height / bitmapSize.height)

                anchors.centerIn: parent
                width: bitmapSize.width > 0 ? bitmapSize.width * enlargement : parent.width
                height: bitmapSize.width > 0 ? bitmapSize.height * enlargement : parent.height
                model: cell.modelData.image
            }
        }
    }
}
