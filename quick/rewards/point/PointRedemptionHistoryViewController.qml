import QtQuick
import Orrelo.Kit

ORLUIViewController {
    id: view

    required property PointRedemptionHistoryScreenBridge screen

    page: screen

    Keys.onPressed: event => {
        const actions = {
            [Qt.Key_Up]: () => list.scrollBy(-48),
            [Qt.Key_Down]: () => list.scrollBy(48),
            [Qt.Key_PageUp]: () => list.scrollBy(-list.height * 0.9),
            [Qt.Key_PageDown]: () => list.scrollBy(list.height * 0.9),
            [Qt.Key_Home]: () => list.scrollBy(-list.contentHeight),
            [Qt.Key_End]: () => list.scrollBy(list.contentHeight),
            [Qt.Key_F5]: () => { if (!event.isAutoRepeat) view.screen.refresh() }
        }
        event.accepted = event.key in actions
        if (event.accepted) actions[event.key]()
    }

    PointView {
        id: balance
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(parent.width, Theme.contentWidth)
        model: view.screen.point
    }
    DividerView {
        id: divider
        anchors { top: balance.bottom; left: parent.left; right: parent.right }
        height: 8
    }
    Item {
        id: area

        /// The list moves about a sixth of the way that a finger pulls it beyond its beginning.
        readonly property real pullDistance: 16
        readonly property real pulled: -Math.min(0, list.interactive ? list.verticalOvershoot : cover.verticalOvershoot)
        readonly property bool isWheelAtRest: !wheelRest.running

        anchors { top: divider.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }

        function release() {
            if (pulled >= pullDistance) view.screen.refresh()
        }

        ListView {
            id: list
            objectName: "history"

            anchors.fill: parent
            clip: true
            reuseItems: true
            interactive: view.screen.error.isHidden
            flickableDirection: Flickable.VerticalFlick
            boundsBehavior: Flickable.DragOverBounds
            model: view.screen.rows
            delegate: PointRedemptionHistoryViewCell {
                width: list.width
            }
            Accessible.role: Accessible.List
            Accessible.name: view.screen.title
            Accessible.onNextPageAction: view.screen.refresh()

            function scrollBy(distance) {
                const end = Math.max(originY, originY + contentHeight - height)
                contentY = Math.min(end, Math.max(originY, contentY + distance))
            }
            // Called later, when the rows have been laid out.
            function reportSight() {
                forceLayout()
                const bottom = contentY + height - 1
                const isBelowAll = contentHeight > 0 && bottom >= originY + contentHeight
                view.screen.willDisplay(isBelowAll ? count - 1 : indexAt(width / 2, bottom))
            }

            onContentYChanged: {
                wheelRest.restart()
                sight.start()
            }
            onContentHeightChanged: sight.start()
            onHeightChanged: sight.start()
            onDragEnded: area.release()

            Timer {
                id: sight
                interval: 0
                onTriggered: list.reportSight()
            }
            Binding {
                target: list.contentItem
                property: "visible"
                value: list.interactive
            }
        }
        ScrollIndicator {
            scroll: list
            visible: list.interactive && list.visibleArea.heightRatio < 1
        }
        // The message can be pulled like the list beneath it.
        Flickable {
            id: cover
            anchors.fill: parent
            visible: !list.interactive
            clip: true
            contentHeight: height
            flickableDirection: Flickable.VerticalFlick
            boundsBehavior: Flickable.DragOverBounds
            onDragEnded: area.release()

            ErrorView {
                width: cover.width
                height: cover.height
                model: view.screen.error
            }
        }
        // Receives the turns of a wheel that the list does not use because it is at its end.
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: {
                if (area.isWheelAtRest) view.screen.refresh()
                wheelRest.restart()
            }
        }
        // While it runs, turns of the wheel belong to the one before, which has scrolled the list or loaded.
        Timer {
            id: wheelRest
            interval: 300
        }
        Rectangle {
            anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 12 }
            visible: (list.dragging || cover.dragging) && area.pulled > 0
            opacity: Math.min(1, area.pulled / area.pullDistance)
            width: 48
            height: width
            radius: width / 2
            color: "white"
            border { width: 1; color: Theme.divider }

            ActivityIndicator {
                anchors.centerIn: parent
                width: 32
                height: width
                isAnimating: parent.visible
            }
        }
        ActivityIndicator {
            anchors.centerIn: parent
            width: 50
            height: width
            isAnimating: view.screen.isLoading
        }
    }
}
