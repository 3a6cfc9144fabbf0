import QtQuick
import Orrelo.Kit

/// A button that participates in the campaign, above a line that shows the user's status.
Column {
    id: view

    required property ActionButtonBridge model

    leftPadding: model.margin
    rightPadding: model.margin
    spacing: model.spacing
    // An empty status keeps the spacing above it but has no height.
    bottomPadding: status.visible ? 0 : spacing

    ActionButton {
        width: view.width - 2 * view.model.margin
        minimumHeight: view.model.buttonHeight
        isEnabled: view.model.isEnabled
        text: view.model.text
        fill: view.model.fill
        textColor: view.model.titleColor
        onPressed: view.model.onClick()
    }
    KitText {
        id: status
        width: view.width - 2 * view.model.margin
        horizontalAlignment: Text.AlignHCenter
        size: 12
        color: view.model.statusColor
        text: view.model.statusMessage
    }
}
