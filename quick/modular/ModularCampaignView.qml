import QtQuick
import Orrelo.Kit

/// A page that the service has put together, on its own ground.
PageScroll {
    id: view

    required property ModularCampaignBridge model

    topPadding: 0
    bottomPadding: 0
    sideMargin: 0
    showsIndicator: false

    StackView {
        width: parent.width
        model: view.model.stack
    }
    // The white background fills the whole page, also below blocks that end before the screen does.
    Rectangle {
        parent: view
        z: -1
        anchors.fill: parent
        color: view.model.backgroundColor
    }
}
