import QtQuick
import Orrelo.Kit

/// The toasts over a screen, all at its centre. They do not accept taps.
Item {
    id: toasts

    required property ToastLayerBridge model

    Repeater {
        model: toasts.model.toasts

        Rectangle {
            id: view

            required property ToastBridge modelData
            readonly property real inset: 8

            objectName: modelData.accessibilityIdentifier
            anchors.centerIn: parent
            width: label.width + 2 * inset
            height: label.height + 2 * inset
            radius: 5
            color: modelData.color
            Accessible.role: Accessible.AlertMessage
            Accessible.name: modelData.message
            Component.onCompleted: toasts.model.announce(view)

            KitText {
                id: label
                anchors.centerIn: parent
                width: Math.min(implicitWidth, 0.8 * toasts.width - 2 * view.inset)
                horizontalAlignment: Text.AlignHCenter
                size: 12
                color: "white"
                text: view.modelData.message
                Accessible.ignored: true
            }
            KitAnimation {
                motion: view.modelData.fade
                target: view
                property: "opacity"
                running: true
                onFinished: toasts.model.fadeDidFinish(view.modelData)
            }
        }
    }
}
