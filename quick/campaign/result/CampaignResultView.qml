import QtQuick
import Orrelo.Kit

/// The page of a campaign that has ended: its image, its result and the notice.
PageScroll {
    id: view

    required property CampaignResultBridge model

    spacing: 16

    KitImage {
        width: parent.width
        height: heightForWidth
        model: view.model.image
    }
    PaddedLabel {
        width: parent.width
        topPadding: 15
        bottomPadding: 15
        leftPadding: 20
        rightPadding: 20
        radius: Theme.cornerRadius
        backgroundColor: "white"
        size: 16
        font { weight: Font.DemiBold; letterSpacing: -0.16 }
        lineHeight: 1.17
        text: view.model.body
    }
    Column {
        width: parent.width
        spacing: 4

        KitText {
            width: parent.width
            size: 18
            font.bold: true
            color: "black"
            text: view.model.name
            Accessible.role: Accessible.Heading
        }
        KitText {
            width: parent.width
            size: 12
            color: "black"
            text: view.model.label
        }
    }
    CampaignNoticeView {
        width: parent.width
        model: view.model.notice
    }
}
