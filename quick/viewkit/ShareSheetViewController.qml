import QtQuick
import Orrelo.Kit

/// A sheet at the bottom of the dimmed screen with the text and the ways to share it. A tap outside it closes it too.
FocusScope {
    id: view

    required property ShareSheetScreenBridge screen

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: screen.heading

    component Way: PressArea {
        id: way

        property alias asset: icon.source
        property alias title: label.text

        implicitHeight: Math.max(56, label.height + 24)
        name: title

        Image {
            id: icon
            anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }
            width: 24
            height: 24
            sourceSize { width: 96; height: 96 }
        }
        KitText {
            id: label
            anchors { left: icon.right; leftMargin: 16; right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
            size: 16
            Accessible.ignored: true
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.dialogDim

        TapHandler {
            onTapped: view.screen.close()
        }
    }
    Rectangle {
        id: sheet
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: -radius }
        width: Math.min(parent.width, Theme.contentWidth)
        height: shared.y + shared.height + 16 + ways.height + 12 + radius
        radius: 16
        color: "white"

        // A tap on the sheet must not count as a tap outside it.
        TapHandler {
            gesturePolicy: TapHandler.ReleaseWithinBounds
        }
        KitText {
            id: title
            anchors { left: parent.left; leftMargin: Theme.margin; right: closeButton.left; verticalCenter: closeButton.verticalCenter }
            size: 17
            maximumScale: 1.6
            font.bold: true
            text: view.screen.heading
            Accessible.role: Accessible.Heading
        }
        IconButton {
            id: closeButton
            anchors { top: parent.top; topMargin: 8; right: parent.right; rightMargin: 8 }
            source: view.screen.closeAsset
            name: "닫기"
            onPressed: view.screen.close()
        }
        // The text scrolls if it does not fit, so that the ways remain visible.
        Rectangle {
            id: shared
            x: Theme.margin
            y: 60
            width: parent.width - 2 * Theme.margin
            height: words.height + 24
            radius: Theme.cornerRadius
            color: Theme.noticeFill

            Flickable {
                id: words
                x: 16
                y: 12
                width: parent.width - 32
                height: Math.min(textLabel.height, 0.3 * view.height)
                contentHeight: textLabel.height
                boundsBehavior: Flickable.StopAtBounds
                interactive: contentHeight > height
                clip: interactive

                KitText {
                    id: textLabel
                    width: parent.width
                    text: view.screen.text
                }
            }
        }
        Column {
            id: ways
            x: Theme.margin - 8
            y: shared.y + shared.height + 16
            width: parent.width - 2 * x

            Way {
                width: parent.width
                focus: true
                asset: view.screen.copyAsset
                title: view.screen.copyTitle
                onPressed: view.screen.copy()
            }
            Way {
                width: parent.width
                asset: view.screen.mailAsset
                title: view.screen.mailTitle
                onPressed: view.screen.mail()
            }
        }
    }
}
