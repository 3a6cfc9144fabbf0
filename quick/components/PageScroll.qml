import QtQuick
import Orrelo.Kit

/// A column of blocks of readable width that scrolls if it does not fit. It scrolls to an item that is
/// focused by a key; an item that is focused by a press is visible anyway.
Flickable {
    id: scroll

    default property alias blocks: column.data
    property alias spacing: column.spacing
    property real sideMargin: Theme.margin
    property real topPadding: 24
    property real bottomPadding: 24
    property bool showsIndicator: true
    readonly property Item focusItem: Window.activeFocusItem

    contentWidth: width
    contentHeight: column.y + column.height + bottomPadding
    boundsBehavior: Flickable.DragAndOvershootBounds
    flickableDirection: Flickable.VerticalFlick
    pixelAligned: Screen.devicePixelRatio === 1  // text and images are not resampled while the page scrolls
    clip: true
    focus: true

    function scrollBy(distance) {
        const end = Math.max(0, contentHeight - height)
        contentY = Math.min(end, Math.max(0, contentY + distance))
    }

    onFocusItemChanged: {
        if (!Theme.showsFocus) return
        let above = focusItem
        while (above && above !== column) above = above.parent
        if (!above) return
        const top = focusItem.mapToItem(column, 0, 0).y + column.y
        if (top - 16 < contentY) scrollBy(top - 16 - contentY)
        else if (top + focusItem.height + 16 > contentY + height) scrollBy(top + focusItem.height + 16 - contentY - height)
    }
    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Up]: -48, [Qt.Key_Down]: 48, [Qt.Key_PageUp]: -height * 0.9, [Qt.Key_PageDown]: height * 0.9,
            [Qt.Key_Home]: -contentHeight, [Qt.Key_End]: contentHeight
        }
        event.accepted = event.key in steps
        if (event.accepted) scrollBy(steps[event.key])
    }

    Column {
        id: column
        x: (scroll.width - width) / 2
        y: scroll.topPadding
        width: Math.min(scroll.width, Theme.contentWidth) - 2 * scroll.sideMargin
        spacing: 24
    }
    ScrollIndicator {
        scroll: scroll
        visible: scroll.showsIndicator && scroll.contentHeight > scroll.height
    }
}
