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

            objectName: modelData.accessibilityIdentifier
            anchors.centerIn: parent
            width: label.width + 2 * modelData.inset
            height: label.height + 2 * modelData.inset
            radius: modelData.cornerRadius
            color: modelData.color
            Accessible.role: Accessible.AlertMessage
            Accessible.name: modelData.message
            Component.onCompleted: toasts.model.announce(view)

            KitText {
                id: label
                anchors.centerIn: parent
                width: Math.min(implicitWidth, toasts.width * view.modelData.maximumWidthShare - 2 * view.modelData.inset)
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
