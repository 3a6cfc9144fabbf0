import QtQuick
import Orrelo

/// What the user has to know.
Rectangle {
    id: view

    required property CampaignNoticeBridge model

    implicitHeight: column.height + 32
    visible: model.body.length > 0
    color: "white"
    radius: Theme.cornerRadius

    Rectangle {
        anchors.fill: parent
        radius: parent.radius
        color: Theme.noticeFill
    }

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
        KitText {
            width: parent.width
            size: 12
            lineHeight: 1.4
            color: Theme.secondaryText
            text: view.model.body
        }
    }
}
