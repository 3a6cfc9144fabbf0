import QtQuick
import Orrelo

/// A text with a small picture, and another text at the other side.
Rectangle {
    id: box

    required property InformationBoxBridge model

    implicitHeight: Math.max(model.boxHeight, left.height + 32, right.height + 32)
    radius: model.cornerRadius
    color: model.backgroundColor
    Accessible.role: Accessible.StaticText
    Accessible.name: [model.leftText, model.rightText].filter(text => text.length > 0).join(", ")

    Row {
        id: left
        anchors { left: parent.left; leftMargin: box.model.margin; verticalCenter: parent.verticalCenter }
        spacing: box.model.leftSpacing

        KitText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, (box.width - 2 * box.model.margin) * 0.6 - picture.width)
            size: 14
            text: box.model.leftText
            Accessible.ignored: true
        }
        KitImage {
            id: picture
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(box.model.imageWidth, (box.width - 2 * box.model.margin) * 0.4)
            height: box.model.imageHeight
            model: box.model.image
        }
    }
    KitText {
        id: right
        anchors { right: parent.right; rightMargin: box.model.margin; verticalCenter: parent.verticalCenter }
        width: Math.max(0, box.width - 2 * box.model.margin - left.width - 12)
        horizontalAlignment: Text.AlignRight
        size: 14
        font.bold: true
        color: box.model.rightTextColor
        text: box.model.rightText
        Accessible.ignored: true
    }
}
