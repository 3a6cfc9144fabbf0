import QtQuick
import Orrelo.Kit

ORLUIViewController {
    id: view

    required property PointRedemptionHistoryScreenBridge screen

    page: screen

    Keys.onPressed: event => {
        const steps = {
            [Qt.Key_Up]: -48, [Qt.Key_Down]: 48, [Qt.Key_PageUp]: -list.height * 0.9,
            [Qt.Key_PageDown]: list.height * 0.9, [Qt.Key_Home]: -list.contentHeight, [Qt.Key_End]: list.contentHeight
        }
        event.accepted = event.key in steps || event.key === Qt.Key_F5
        if (event.key === Qt.Key_F5) {
            if (!event.isAutoRepeat) view.screen.refresh()
        } else if (event.accepted) {
            list.scrollBy(steps[event.key])
        }
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
        anchors { top: divider.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }

        ListView {
            id: list
            objectName: "history"

            readonly property real pullDistance: 64

            anchors.fill: parent
            clip: true
            reuseItems: true
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
            function reportSight() {
                const last = indexAt(width / 2, contentY + height - 1)
                view.screen.willDisplay(last < 0 ? count - 1 : last)
            }

            onContentYChanged: {
                wheelRest.restart()
                reportSight()
            }
            onContentHeightChanged: reportSight()
            onHeightChanged: reportSight()
            onDragEnded: if (verticalOvershoot <= -pullDistance) view.screen.refresh()

            Binding {
                target: list.contentItem
                property: "visible"
                value: view.screen.error.isHidden
            }
        }
        // Receives the turns of a wheel that the list does not use because it is at its end.
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: {
                if (!wheelRest.running) view.screen.refresh()
                wheelRest.restart()
            }
        }
        // While it runs, turns of the wheel belong to the one before, which has scrolled the list or loaded.
        Timer {
            id: wheelRest
            interval: 300
        }
        Rectangle {
            parent: list
            visible: list.contentHeight > list.height && view.screen.error.isHidden
            opacity: list.moving ? 0.5 : 0.2
            x: list.width - width - 3
            y: list.visibleArea.yPosition * list.height + 2
            width: 4
            height: Math.max(24, list.visibleArea.heightRatio * list.height - 4)
            radius: 2
            color: Theme.text
        }
        ErrorView {
            anchors.fill: parent
            model: view.screen.error
        }
        ActivityIndicator {
            id: pull
            anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 12 }
            width: 36
            height: width
            isAnimating: list.dragging && list.verticalOvershoot < 0
            opacity: Math.min(1, -list.verticalOvershoot / list.pullDistance)
        }
        ActivityIndicator {
            anchors.centerIn: parent
            width: 50
            height: width
            isAnimating: view.screen.isLoading
        }
    }
}
