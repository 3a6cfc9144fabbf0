import QtQuick
import Orrelo

/// A picture over what is wrong, in the middle of its place, opaque over what lies beneath.
Item {
    id: errorView

    required property ErrorBridge model
    property url background

    visible: !model.isHidden
    Accessible.role: Accessible.AlertMessage
    Accessible.name: model.text

    Background {
        source: errorView.background
    }
    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
        spacing: 20

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 72
            height: 72
            source: errorView.model.asset
            sourceSize: Qt.size(144, 144)
        }
        KitText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            size: 16
            text: errorView.model.text
            Accessible.ignored: true
        }
    }
}
