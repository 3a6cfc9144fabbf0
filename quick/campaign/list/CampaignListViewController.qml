import QtQuick
import Orrelo.Kit

/// The campaigns, one below the other.
Column {
    id: list

    required property CampaignListBridge screen
    /// The area that scrolls the list.
    required property Flickable scroll

    function report() {
        const top = mapFromItem(scroll, 0, 0).y
        screen.reportSight(list, top, top + scroll.height)
    }
    function settle() {
        report()
        screen.didLayOut()
    }

    spacing: 12
    onPositioningComplete: settle()
    onYChanged: report()
    onVisibleChanged: report()

    Connections {
        target: list.scroll
        function onContentYChanged() { list.report() }
        function onHeightChanged() { list.report() }
    }
    Connections {
        target: list.screen
        // A list that is equal to the former one is not positioned again.
        function onListArrived() {
            list.forceLayout()
            list.settle()
        }
    }
    Repeater {
        model: list.screen.cells

        CampaignViewCell {
            width: list.width
            onPressed: list.screen.didSelect(modelData)
        }
    }
}
