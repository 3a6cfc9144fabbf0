import QtQuick
import Orrelo.Kit

/// A page of blocks that the service has composed, on white.
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
    // The background fills the whole page, also below the last block.
    Rectangle {
        parent: view
        z: -1
        anchors.fill: parent
        color: "white"
    }
}
