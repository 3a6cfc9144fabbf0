import QtQuick
import Orrelo

/// A card in the middle of the dimmed screen.
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
        anchors.centerIn: parent
        width: Math.min(340, parent.width - 48)
        height: Math.min(column.height + 48, parent.height - 48)
        radius: Theme.cornerRadius
        color: "white"

        IconButton {
            anchors { top: parent.top; right: parent.right; margins: 4 }
            z: 1
            source: view.screen.closeAsset
            name: "닫기"
            onPressed: view.screen.close()
        }
        Flickable {
            anchors { fill: parent; margins: 24 }
            contentHeight: column.height
            boundsBehavior: Flickable.StopAtBounds
            interactive: contentHeight > height
            clip: interactive

            Column {
                id: column
                width: parent.width
                topPadding: 28
                spacing: 16

                KitText {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    size: 22
                    font.bold: true
                    color: view.screen.color
                    text: view.screen.heading
                    Accessible.role: Accessible.Heading
                }
                KitText {
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    size: 20
                    text: view.screen.message
                }
                Item {
                    width: 1
                    height: 4
                }
                ActionButton {
                    width: parent.width
                    objectName: "confirmButton"
                    focus: true
                    text: view.screen.buttonText
                    fill: view.screen.color
                    textColor: view.screen.buttonTextColor
                    onPressed: view.screen.close()
                }
            }
        }
    }
}
