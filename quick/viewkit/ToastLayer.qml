import QtQuick
import Orrelo

/// The toasts over a screen, all in its middle. They take no taps.
Item {
    id: toasts

    required property ToastsBridge model

    Repeater {
        model: toasts.model

        Rectangle {
            id: view

            required property ToastBridge toast

            objectName: toast.accessibilityIdentifier
            anchors.centerIn: parent
            width: label.width + 2 * toast.inset
            height: label.height + 2 * toast.inset
            radius: toast.cornerRadius
            color: toast.color
            Accessible.role: Accessible.AlertMessage
            Accessible.name: toast.message
            Component.onCompleted: toasts.model.announce(view)

            KitText {
                id: label
                anchors.centerIn: parent
                width: Math.min(implicitWidth, toasts.width * view.toast.maximumWidthShare - 2 * view.toast.inset)
                horizontalAlignment: Text.AlignHCenter
                size: 12
                color: "white"
                text: view.toast.message
                Accessible.ignored: true
            }
            KitAnimation {
                motion: view.toast.fade
                target: view
                property: "opacity"
                running: true
                onFinished: toasts.model.fadeDidFinish(view.toast)
            }
        }
    }
}
