import QtQuick
import Orrelo.Kit

ORLUIViewController {
    id: view

    required property ErrorScreenBridge screen

    page: screen
    background: screen.background

    ErrorView {
        anchors.fill: parent
        model: view.screen.error
        background: view.screen.background
    }
}
