import QtQuick
import Orrelo.Kit

/// The balance above a row of buttons, as high as what it shows.
FocusScope {
    id: view

    required property RewardTabBridge screen

    implicitHeight: column.height

    Column {
        id: column
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.contentWidth)

        PointView {
            width: parent.width
            model: view.screen.point
            opensHistory: true
            onPressed: view.screen.onClickPointView()
        }
        // The buttons share the width evenly; those that do not fit beside the others stand below.
        Flow {
            id: row

            readonly property int buttonCount: visibleChildren.length
            readonly property real share: Math.floor(width / Math.max(1, buttonCount))

            x: Theme.margin
            width: parent.width - 2 * x
            visible: !view.screen.isHorizontalRewardStackHidden
            topPadding: 12
            bottomPadding: 16
            spacing: 0

            RewardTabButton {
                width: Math.min(row.width, Math.max(implicitWidth, row.share))
                model: view.screen.gifticonButton
                onPressed: view.screen.onClickGifticonButton()
            }
            RewardTabButton {
                width: Math.min(row.width, Math.max(implicitWidth, row.share))
                model: view.screen.externalPointButton
                onPressed: view.screen.onClickExternalPointButton()
            }
            // It only shows the number of tickets.
            RewardTabButton {
                width: Math.min(row.width, Math.max(implicitWidth, row.share))
                model: view.screen.ticketButton
                isEnabled: false
                role: Accessible.StaticText
            }
        }
    }
}
