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
        screen.reportSight(list, top, visible ? top + scroll.height : top)
    }

    spacing: 12
    onPositioningComplete: {
        report()
        screen.didLayOut()
    }
    onYChanged: report()
    onVisibleChanged: report()

    Connections {
        target: list.scroll
        function onContentYChanged() { list.report() }
        function onHeightChanged() { list.report() }
    }
    Connections {
        target: list.screen
        function onListArrived() { list.forceLayout() }
    }
    Repeater {
        model: list.screen.cells

        CampaignViewCell {
            width: list.width
            onPressed: list.screen.didSelect(modelData)
        }
    }
}
