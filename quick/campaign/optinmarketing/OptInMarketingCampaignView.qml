import QtQuick
import Orrelo

/// A picture, a button that hands over to the host, and the small print.
Item {
    id: view

    required property OptInMarketingCampaignBridge model

    PageScroll {
        anchors.fill: parent

        AutoLayoutImageView {
            width: parent.width
            model: view.model.image
        }
        ActionButton {
            width: parent.width
            visible: !view.model.isButtonHidden
            minimumHeight: 56
            isEnabled: view.model.isButtonEnabled
            text: view.model.buttonTitle
            fill: view.model.buttonFill
            textColor: view.model.buttonTextColor
            onPressed: view.model.onTapMoveButton()
        }
        CampaignNoticeView {
            width: parent.width
            model: view.model.notice
        }
    }
    ErrorView {
        anchors.fill: parent
        model: view.model.error
    }
}
