import QtQuick
import Orrelo.Kit

/// An error's image above its message.
Column {
    id: message

    required property ErrorBridge model

    spacing: 20
    Accessible.role: Accessible.AlertMessage
    Accessible.name: model.text

    Image {
        anchors.horizontalCenter: parent.horizontalCenter
        width: 72
        height: 72
        source: message.model.asset
        sourceSize { width: 144; height: 144 }
    }
    KitText {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        size: 16
        text: message.model.text
        Accessible.ignored: true
    }
}
