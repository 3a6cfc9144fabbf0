import QtQuick
import Orrelo.Kit

/// A stamp board between the blocks that the service has arranged around it.
PageScroll {
    id: view

    required property StampCampaignBridge model

    sideMargin: 0

    StackView {
        width: parent.width
        model: view.model.stack
    }
}
