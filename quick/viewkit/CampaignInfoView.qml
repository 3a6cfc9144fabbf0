import QtQuick
import Orrelo.Kit

/// The header of a campaign page. Its tooltip overlaps the blocks below.
Item {
    id: view

    required property CampaignInfoBridge model

    implicitHeight: column.height
    z: 1

    Column {
        id: column
        width: parent.width

        TitleRows {
            width: parent.width
            first: view.model.firstTitle
            second: view.model.secondTitle
        }
        GuideLine {
            id: guide
            width: parent.width
            text: view.model.guideTitle
            asset: view.model.guideAsset
            canExplain: view.model.hasGuide
            onPressed: view.model.guideLabelTapped()
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
        x: guide.tailX(tooltip, width, view.width, view)
        y: guide.y + guide.height - 4
        tooltip: view.model.tooltip
        availableWidth: view.width
    }
}
