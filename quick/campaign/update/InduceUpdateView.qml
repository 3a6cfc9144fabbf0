import QtQuick
import Orrelo.Kit

/// A request to update the application, above a button that opens the store. It is vertically centred if it
/// fits.
PageScroll {
    id: view

    required property InduceUpdateBridge model

    topPadding: Math.max(bottomPadding, (height - message.height) / 2)

    Column {
        id: message
        width: parent.width
        spacing: 16

        ErrorMessage {
            width: parent.width
            model: view.model.error
        }
        PressArea {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.max(124, label.implicitWidth + 12 * Theme.textScale)
            height: Math.max(36, label.implicitHeight + 12)
            name: view.model.buttonTitle
            onPressed: view.model.routeToUpdateLink()

            Rectangle {
                anchors.fill: parent
                radius: Theme.cornerRadius
                color: "white"
                border { width: 1; color: view.model.color }
            }
            KitText {
                id: label
                anchors.centerIn: parent
                size: 14
                font.weight: Font.ExtraBold
                color: view.model.color
                text: view.model.buttonTitle
                Accessible.ignored: true
            }
        }
    }
}
