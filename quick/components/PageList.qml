import QtQuick
import Orrelo.Kit

/// A list of rows of readable width, of which only those near the visible part exist. It is one stop of the Tab
/// key; the arrow keys, Page Up, Page Down, Home and End move between its rows. A delegate takes `rowX` and
/// `rowWidth`, is no stop of the Tab key, and calls `choose` with its index when it is pressed.
ListView {
    id: list

    readonly property real rowWidth: Math.min(width, Theme.contentWidth) - 2 * Theme.margin
    readonly property real rowX: (width - rowWidth) / 2

    signal chosen(int row)

    function choose(row) {
        currentIndex = row
        chosen(row)
    }

    topMargin: 24
    bottomMargin: 24
    spacing: 12
    boundsBehavior: Flickable.DragAndOvershootBounds
    clip: true
    enabled: count > 0
    activeFocusOnTab: true
    highlightMoveDuration: Theme.pressDuration / 2
    highlightMoveVelocity: -1
    Accessible.role: Accessible.List
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(height / Math.max(1, contentHeight / Math.max(1, count))))
        const steps = {
            [Qt.Key_PageUp]: -page, [Qt.Key_PageDown]: page, [Qt.Key_Home]: -count, [Qt.Key_End]: count
        }
        event.accepted = event.key in steps && count > 0
        if (event.accepted) currentIndex = Math.max(0, Math.min(count - 1, currentIndex + steps[event.key]))
    }

    ScrollIndicator {
        scroll: list
    }
}
