import QtQuick
import Orrelo.Kit

/// What the service has put around a board of missions.
PageScroll {
    id: view

    required property StampCampaignBridge model

    sideMargin: 0

    StackView {
        width: parent.width
        model: view.model.stack
    }
}
