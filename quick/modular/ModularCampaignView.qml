import QtQuick
import Orrelo

/// A page that the service has put together, on its own ground.
Rectangle {
    id: view

    required property ModularCampaignBridge model

    color: model.backgroundColor

    PageScroll {
        anchors.fill: parent
        topPadding: 0
        sideMargin: 0

        StackView {
            width: parent.width
            model: view.model.stack
        }
    }
}
