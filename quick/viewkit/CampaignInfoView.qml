import QtQuick
import Orrelo

/// The head of a page. Its tooltip lies over the blocks below.
Item {
    id: view

    required property CampaignInfoBridge model

    implicitHeight: column.height
    z: 1

    Column {
        id: column
        width: parent.width

        KitText {
            width: parent.width
            size: 24
            maximumScale: 1.6
            text: view.model.firstTitle
            Accessible.role: Accessible.Heading
        }
        KitText {
            width: parent.width
            size: 24
            maximumScale: 1.6
            font.bold: true
            text: view.model.secondTitle
            Accessible.role: Accessible.Heading
        }
        Item {
            width: 1
            height: 12
        }
        PressArea {
            id: guide
            width: Math.min(parent.width, row.implicitWidth + 12)
            height: Math.max(32, row.height + 8)
            visible: view.model.guideTitle.length > 0
            isEnabled: view.model.hasGuide
            role: isEnabled ? Accessible.Button : Accessible.StaticText
            name: view.model.guideTitle
            focusRadius: 2
            onPressed: view.model.guideLabelTapped()

            Row {
                id: row
                anchors.verticalCenter: parent.verticalCenter
                spacing: 5

                KitText {
                    id: tooltipGuideLabel
                    width: Math.min(implicitWidth, column.width - 32)
                    size: 12
                    color: Theme.secondaryText
                    text: view.model.guideTitle
                    Accessible.ignored: true
                }
                Image {
                    id: guideIcon
                    anchors.verticalCenter: parent.verticalCenter
                    visible: view.model.hasGuide
                    width: 12 * Theme.textScale
                    height: width
                    source: view.model.guideAsset
                    sourceSize: Qt.size(48, 48)
                }
            }
        }
        Item {
            width: 1
            height: 16
            visible: picture.visible
        }
        KitImage {
            id: picture
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, 320)
            height: 180
            model: view.model.image
        }
    }
    TooltipView {
        // The tail points at the middle of the guide's icon, or as near as the page is wide.
        x: Math.max(0, Math.min(view.width - width, guideIcon.x + guideIcon.width / 2 - 7 - tooltip.horizontalBias * width))
        y: guide.y + guide.height - 4
        tooltip: view.model.tooltip
        maximumWidth: Math.min(200 * Theme.textScale, view.width)
    }
}
