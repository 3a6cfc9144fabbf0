import QtQuick
import Orrelo.Kit

/// The user's rewards above the list of campaigns, in one scrolling page.
ORLUIViewController {
    id: view

    required property HomeScreenBridge screen

    page: screen
    background: screen.background
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F5
        if (event.accepted && !event.isAutoRepeat) screen.refresh()
    }

    PageScroll {
        id: scroll
        anchors.fill: parent

        CampaignListViewController {
            width: parent.width
            visible: view.screen.error.isHidden
            screen: view.screen.campaigns
            scroll: scroll
        }
        Item {
            width: parent.width
            height: message.height + 2 * 64
            visible: !view.screen.error.isHidden

            ErrorMessage {
                id: message
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                model: view.screen.error
            }
        }
    }
    ActivityIndicator {
        anchors.centerIn: parent
        width: 50
        height: width
        isAnimating: view.screen.isLoading
    }
}
