import QtQuick
import Orrelo.Kit

/// A text with an image on the left and another text on the right, or below if both do not fit in a row.
// InformationBoxBridge.cpp repeats what determines the height.
Rectangle {
    id: box

    required property InformationBoxBridge model
    readonly property real margin: 24
    readonly property real availableWidth: width - 2 * margin
    /// The width available to the left text beside the image.
    readonly property real textWidth: availableWidth - left.spacing - picture.width
    readonly property bool isStacked: leftText.implicitWidth + left.spacing + picture.width + 12
                                      + right.implicitWidth > availableWidth

    implicitHeight: Math.max(84,
                             (isStacked ? left.height + 4 + right.height : Math.max(left.height, right.height)) + 32)
    radius: Theme.cornerRadius
    color: Qt.rgba(0.98, 0.98, 0.98, 1)
    Accessible.role: Accessible.StaticText
    Accessible.name: model.accessibilityLabel

    Grid {
        id: left
        x: box.margin
        y: Math.floor((box.height - height - (box.isStacked ? 4 + right.height : 0)) / 2)
        spacing: 10
        // A text that would need several lines in less than half of the box is placed above the image.
        columns: box.textWidth < Math.min(leftText.implicitWidth, box.availableWidth / 2) ? 1 : 2
        verticalItemAlignment: Grid.AlignVCenter

        KitText {
            id: leftText
            width: Math.min(implicitWidth, left.columns === 1 ? box.availableWidth : box.textWidth)
            size: 14
            text: box.model.leftText
            Accessible.ignored: true
        }
        KitImage {
            id: picture
            width: Math.min(box.model.imageWidth, box.availableWidth)
            height: box.model.imageHeight
            model: box.model.image
        }
    }
    KitText {
        id: right
        anchors { right: parent.right; rightMargin: box.margin }
        y: box.isStacked ? left.y + left.height + 4 : Math.floor((box.height - height) / 2)
        width: Math.max(0, box.isStacked ? box.availableWidth : box.availableWidth - left.width - 12)
        horizontalAlignment: Text.AlignRight
        size: 14
        font.bold: true
        color: box.model.rightTextColor
        text: box.model.rightText
        Accessible.ignored: true
    }
}
