import QtQuick
import Orrelo.Kit

/// The picture of a voucher above the button that closes it. The keys work wherever the focus is.
FocusScope {
    id: view

    required property GifticonDetailScreenBridge screen

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: view.screen.accessibilityLabel
    Keys.onPressed: event => image.zoomBy(event)

    Rectangle {
        anchors.fill: parent
        color: "white"
    }
    ZoomImageView {
        id: image
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: closeLabel.top; bottomMargin: Theme.margin }
        model: view.screen.image
    }
    ActivityIndicator {
        anchors.centerIn: image
        width: 50
        height: width
        isAnimating: view.screen.isLoading
    }
    ErrorMessage {
        anchors.centerIn: image
        width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
        visible: !view.screen.error.isHidden
        model: view.screen.error
    }
    ActionButton {
        id: closeLabel
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: Theme.margin }
        width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
        focus: true
        text: view.screen.buttonText
        fill: Theme.text
        textColor: "white"
        onPressed: view.screen.close()
    }
}
