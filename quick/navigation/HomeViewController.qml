import QtQuick
import Orrelo.Kit

/// The user's rewards above the list of campaigns, in one scrolling page.
ORLUIViewController {
    id: view

    required property HomeScreenBridge screen
    readonly property real pullDistance: 64

    page: screen
    background: screen.background
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_F5
        if (event.accepted && !event.isAutoRepeat) screen.refresh()
    }

    PageScroll {
        id: scroll
        anchors.fill: parent
        sideMargin: 0
        topPadding: 16
        spacing: 12
        onDragEnded: if (verticalOvershoot <= -view.pullDistance) view.screen.refresh()

        RewardViewController {
            width: parent.width
            visible: height > 0
            screen: view.screen.rewards
        }
        CampaignListViewController {
            x: Theme.margin
            width: parent.width - 2 * x
            visible: view.screen.error.isHidden
            screen: view.screen.campaigns
            scroll: scroll
        }
        Item {
            x: Theme.margin
            width: parent.width - 2 * x
            height: message.height + 2 * 40
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
