import QtQuick
import Orrelo.Kit

/// The balance above a row of buttons, as high as what it shows.
FocusScope {
    id: view

    required property RewardTabBridge screen
    /// The distance of the content to the edges; 0 within a page that has margins of its own.
    property real sideMargin: Theme.margin

    implicitHeight: column.height

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.contentWidth)

        PointView {
            width: parent.width
            model: view.screen.point
            sideMargin: view.sideMargin
            opensHistory: true
            onPressed: view.screen.onClickPointView()
        }
        // The buttons share the width evenly, in two columns if their titles do not fit beside each other.
        Flow {
            id: row

            readonly property real widest: Math.max(gifticon.implicitWidth, externalPoint.implicitWidth, ticket.implicitWidth)
            readonly property bool fits: (widest + 8) * view.screen.visibleButtonCount <= width
            readonly property real buttonWidth: Math.floor(width / Math.max(1, fits ? view.screen.visibleButtonCount : 2))

            x: view.sideMargin
            width: parent.width - 2 * x
            visible: !view.screen.isHorizontalRewardStackHidden
            topPadding: 8
            bottomPadding: 16

            RewardTabButton {
                id: gifticon
                width: row.buttonWidth
                model: view.screen.gifticonButton
                onPressed: view.screen.onClickGifticonButton()
            }
            RewardTabButton {
                id: externalPoint
                width: row.buttonWidth
                model: view.screen.externalPointButton
                onPressed: view.screen.onClickExternalPointButton()
            }
            // This button only shows the number of tickets.
            RewardTabButton {
                id: ticket
                width: row.buttonWidth
                model: view.screen.ticketButton
                isEnabled: false
                role: Accessible.StaticText
            }
        }
    }
}
