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
        sightTop: view.contentY
        sightBottom: view.contentY + (view.height > 0 ? view.height : Screen.height)
    }
    // The background fills the whole page, also below the last block.
    Rectangle {
        parent: view
        z: -1
        anchors.fill: parent
        color: "white"
    }
}
