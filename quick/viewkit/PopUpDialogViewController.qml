import QtQuick
import Orrelo.Kit

/// A pop-up of two lines above an image on the dimmed screen. A tap outside its content closes it too.
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
    // The content scrolls if it does not fit, so that the close label remains visible.
    Flickable {
        id: content

        readonly property real availableWidth: Math.min(view.width, Theme.contentWidth) - 2 * Theme.margin

        anchors { horizontalCenter: parent.horizontalCenter; bottom: closeArea.top; bottomMargin: 20 }
        width: Math.min(availableWidth, Math.max(topLabel.implicitWidth, topSubLabel.implicitWidth, picture.width))
        height: Math.min(column.height, view.height - closeArea.height - 20 - 2 * Theme.margin)
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        interactive: contentHeight > height
        clip: interactive

        // A tap on the content must not count as a tap outside it.
        TapHandler {
            gesturePolicy: TapHandler.ReleaseWithinBounds
        }
        Column {
            id: column
            width: parent.width
            spacing: 12

            KitText {
                id: topLabel
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                size: 24
                maximumScale: 1.6
                font.weight: Font.ExtraBold
                color: "white"
                text: view.screen.heading
                Accessible.role: Accessible.Heading
            }
            KitText {
                id: topSubLabel
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                color: "white"
                text: view.screen.label
            }
            KitImage {
                id: picture
                anchors.horizontalCenter: parent.horizontalCenter
                width: Math.min(content.availableWidth, 320)
                height: Math.min(heightForWidth, view.height * 0.5)
                model: view.screen.image
            }
        }
    }
    PressArea {
        id: closeArea
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.min(view.height - Theme.margin - height, (view.height + column.height + 20 - height) / 2)
        width: closeLabel.implicitWidth + 40
        height: Math.max(Theme.touchSize, closeLabel.implicitHeight + 12)
        focus: true
        focusColor: "white"
        name: view.screen.closeText
        gesturePolicy: TapHandler.ReleaseWithinBounds
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
