import QtQuick
import Orrelo.Kit

/// The notice of a campaign page, with a heading.
Rectangle {
    id: view

    required property CampaignNoticeBridge model

    implicitHeight: column.height + 32
    color: Theme.noticeFill
    radius: Theme.cornerRadius

    Column {
        id: column
        x: 16
        y: 16
        width: parent.width - 32
        spacing: 8

        KitText {
            width: parent.width
            color: Theme.secondaryText
            text: view.model.heading
            Accessible.role: Accessible.Heading
        }
        DividerView {
            width: parent.width
            color: Theme.noticeFill
        }
        KitText {
            width: parent.width
            size: 12
            lineHeight: 1.4
            color: Theme.secondaryText
            text: view.model.body
        }
    }
}
