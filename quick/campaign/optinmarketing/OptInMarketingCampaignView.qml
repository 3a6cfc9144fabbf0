import QtQuick
import Orrelo.Kit

/// An image or its error, a button that hands over to the host, and the notice.
PageScroll {
    id: view

    required property OptInMarketingCampaignBridge model

    AutoLayoutImageView {
        width: parent.width
        model: view.model.image
    }
    ErrorMessage {
        width: parent.width
        visible: !view.model.error.isHidden
        model: view.model.error
    }
    ActionButton {
        width: parent.width
        visible: !view.model.isButtonHidden
        minimumHeight: Theme.actionHeight
        isEnabled: view.model.isButtonEnabled
        text: view.model.buttonTitle
        fill: view.model.fill
        textColor: view.model.textColor
        onPressed: view.model.onTapMoveButton()
    }
    CampaignNoticeView {
        width: parent.width
        model: view.model.notice
    }
}
