import QtQuick
import Orrelo.Kit

/// A voucher: its texts on the left of a divider, and on its right what a tap does.
PressArea {
    id: cell

    required property GifticonCellBridge modelData
    required property int index
    readonly property real padding: 16
    /// No real text has as many lines. The limit keeps a broken one from pushing the other vouchers away.
    readonly property int maximumLineCount: 12

    implicitHeight: Math.max(96, labelStack.height + 2 * padding, tapStack.height + 2 * padding)
    activeFocusOnTab: false
    isEnabled: modelData.isEnabled
    role: isEnabled ? Accessible.Button : Accessible.ListItem
    name: modelData.accessibilityLabel

    Rectangle {
        anchors.fill: parent
        radius: Theme.cornerRadius
        color: "white"
        border { width: 1; color: Theme.outline }
    }
    Column {
        id: labelStack
        anchors { left: parent.left; right: divider.left; margins: cell.padding; verticalCenter: parent.verticalCenter }
        spacing: 6

        PaddedLabel {
            id: tagLabel
            width: Math.min(implicitWidth, parent.width)
            leftPadding: 8
            rightPadding: 8
            topPadding: 2
            bottomPadding: 2
            radius: 4
            size: 11
            font.bold: true
            backgroundColor: Theme.divider
            maximumLineCount: cell.maximumLineCount
            elide: Text.ElideRight
            text: cell.modelData.tagLabel
            Accessible.ignored: true
        }
        KitText {
            width: parent.width
            size: 16
            maximumScale: 1.6
            font.bold: true
            maximumLineCount: cell.maximumLineCount
            elide: Text.ElideRight
            text: cell.modelData.titleLabel
            Accessible.ignored: true
        }
        KitText {
            width: parent.width
            size: 12
            color: Theme.captionText
            text: cell.modelData.limitDateLabel
            Accessible.ignored: true
        }
    }
    Rectangle {
        id: divider
        anchors { right: tapArea.left; top: parent.top; bottom: parent.bottom; topMargin: 6; bottomMargin: 6 }
        width: 1
        color: Theme.outline
    }
    Item {
        id: tapArea
        anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
        width: 80

        Column {
            id: tapStack
            anchors { left: parent.left; right: parent.right; margins: 4; verticalCenter: parent.verticalCenter }
            spacing: 6

            Image {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 24
                height: 24
                opacity: cell.modelData.iconAlpha
                source: cell.modelData.icon
                sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
            }
            KitText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                size: 12
                maximumScale: 1.4
                font.bold: cell.isEnabled
                color: cell.modelData.iconLabelColor
                text: cell.modelData.iconLabel
                Accessible.ignored: true
            }
        }
    }
}
