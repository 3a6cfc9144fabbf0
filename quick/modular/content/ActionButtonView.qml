import QtQuick
import Orrelo.Kit

/// A button that participates in the campaign, above a line that shows the user's status.
// ActionButtonBridge.h repeats what determines the height.
Column {
    id: view

    required property ActionButtonBridge model

    leftPadding: 16
    rightPadding: leftPadding
    spacing: 10
    // An empty status keeps the spacing above it but has no height.
    bottomPadding: status.visible ? 0 : spacing

    ActionButton {
        width: view.width - 2 * view.leftPadding
        minimumHeight: Theme.actionHeight
        isEnabled: view.model.isEnabled
        text: view.model.text
        fill: view.model.fill
        textColor: view.model.titleColor
        onPressed: view.model.onClick()
    }
    KitText {
        id: status
        width: view.width - 2 * view.leftPadding
        horizontalAlignment: Text.AlignHCenter
        size: 12
        color: Qt.rgba(0.363, 0.369, 0.375, 1)
        text: view.model.statusMessage
    }
}
