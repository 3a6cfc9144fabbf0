import QtQuick
import Orrelo.Kit

/// The page's button above a line that shows the user's status.
Column {
    id: view

    required property CampaignActionBridge model

    spacing: 10

    ActionButton {
        width: parent.width
        minimumHeight: Theme.actionHeight
        isEnabled: view.model.isEnabled
        text: view.model.title
        fill: view.model.fill
        textColor: view.model.textColor
        onPressed: view.model.onClick()
    }
    KitText {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        size: 14
        text: view.model.statusMessage
    }
}
