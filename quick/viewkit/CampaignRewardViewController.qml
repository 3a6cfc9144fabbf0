import QtQuick
import Orrelo.Kit

/// A reward card in the middle of the dimmed screen.
FocusScope {
    id: view

    required property RewardScreenBridge screen

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: screen.heading

    Rectangle {
        anchors.fill: parent
        color: Theme.dialogDim
    }
    Rectangle {
        id: card

        readonly property real availableHeight: parent.height - 48

        anchors.centerIn: parent
        width: Math.min(340, parent.width - 48)
        height: words.y + words.height + 20 + confirmButton.height + 24
        radius: Theme.cornerRadius
        color: "white"

        IconButton {
            anchors { top: parent.top; right: parent.right; margins: 4 }
            z: 1
            source: view.screen.closeAsset
            name: "닫기"
            onPressed: view.screen.close()
        }
        // The text scrolls if it does not fit, so that the button remains visible.
        Flickable {
            id: words
            x: 24
            y: 52
            width: parent.width - 48
            height: Math.min(column.height, card.availableHeight - y - 20 - confirmButton.height - 24)
            contentHeight: column.height
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            clip: interactive

            Column {
                id: column
                width: parent.width
                spacing: 16

                KitText {
                    id: titleLabel
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    size: 22
                    maximumScale: 1.5
                    font.bold: true
                    color: view.screen.headingColor
                    text: view.screen.heading
                    Accessible.role: Accessible.Heading
                }
                KitText {
                    id: messageLable
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    size: 20
                    maximumScale: 1.5
                    text: view.screen.message
                }
            }
        }
        ActionButton {
            id: confirmButton
            objectName: "confirmButton"
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 24 }
            focus: true
            text: view.screen.buttonText
            fill: view.screen.buttonColor
            textColor: view.screen.buttonTextColor
            onPressed: view.screen.close()
        }
    }
}
