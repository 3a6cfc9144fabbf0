import QtQuick
import Orrelo

/// A page that the service has put together, on its own ground.
PageScroll {
    id: view

    required property ModularCampaignBridge model

    topPadding: 0
    bottomPadding: 0
    sideMargin: 0
    showsIndicator: false

    Rectangle {
        width: parent.width
        height: stack.height
        color: view.model.backgroundColor

        StackView {
            id: stack
            width: parent.width
            model: view.model.stack
        }
    }
}
