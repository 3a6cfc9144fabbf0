import QtQuick
import Orrelo

/// Two lines over a picture, on the dimmed screen; a tap beside them closes it as well.
FocusScope {
    id: view

    required property PopUpDialogScreenBridge screen

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: screen.heading

    Rectangle {
        anchors.fill: parent
        color: Theme.popUpDim

        TapHandler {
            onTapped: view.screen.close()
        }
    }
    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
        spacing: 12

        KitText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            size: 24
            maximumScale: 1.6
            font.weight: Font.Black
            color: "white"
            text: view.screen.heading
            Accessible.role: Accessible.Heading
        }
        KitText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            color: "white"
            text: view.screen.label
        }
        KitImage {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 320)
            height: Math.min(heightForWidth, view.height * 0.5)
            model: view.screen.image
        }
        Item {
            width: 1
            height: 8
        }
        PressArea {
            anchors.horizontalCenter: parent.horizontalCenter
            width: closeLabel.implicitWidth + 40
            height: Math.max(Theme.touchSize, closeLabel.implicitHeight + 12)
            focus: true
            focusColor: "white"
            name: view.screen.closeText
            onPressed: view.screen.close()

            KitText {
                id: closeLabel
                anchors.centerIn: parent
                size: 20
                font.bold: true
                color: "white"
                text: view.screen.closeText
                Accessible.ignored: true
            }
        }
    }
}
