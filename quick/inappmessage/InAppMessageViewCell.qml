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
        // Pages out of sight are not to be read.
        name: cell.isCurrent ? cell.modelData.accessibilityLabel : ""
        Accessible.onNextPageAction: cell.turned(1)
        Accessible.onPreviousPageAction: cell.turned(-1)
        onPressed: cell.pressed()

        // Shown until there is a picture.
        Rectangle {
            anchors.fill: parent
            visible: drawing.bitmapSize.width <= 0
            radius: drawing.cornerRadius
            color: "#5b5d60"

            Image {
                anchors.centerIn: parent
                width: Math.min(48, parent.width)
                height: width
                source: cell.modelData.placeholder
                sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
            }
        }
        KitImage {
            id: drawing
            anchors.fill: parent
            // Its play button is not to be reached on pages out of sight.
            enabled: cell.isCurrent
            cornerRadius: Theme.cornerRadius
            model: cell.modelData.image
        }
    }
}
