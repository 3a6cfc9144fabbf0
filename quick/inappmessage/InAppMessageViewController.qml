import QtQuick
import Orrelo.Kit

/// Banners in a carousel over the dimmed screen. A press on the ground closes it.
FocusScope {
    id: view

    required property InAppMessageScreenBridge screen
    readonly property rect container: screen.container
    /// The distance of the outer labels from the window's edges.
    readonly property real edge: 8

    function layOut() {
        screen?.layOut(width, height, skipTodayLabel.height + 20 + edge, bottomStack.height + 16 + edge)
    }

    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: screen?.accessibilityLabel ?? ""
    Component.onCompleted: layOut()
    onWidthChanged: layOut()
    onHeightChanged: layOut()
    Keys.onLeftPressed: screen.turn(-1)
    Keys.onRightPressed: screen.turn(1)

    Connections {
        target: view.screen
        function onScrollsTo(item, animated) { imageCollectionView.scrollTo(item, animated) }
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.popUpDim

        MouseArea {
            anchors.fill: parent
            onClicked: view.screen.close()
        }
    }
    ListView {
        id: imageCollectionView

        function scrollTo(item, animated) {
            slide.stop()
            keeping.stop()
            cancelFlick()
            if (!animated) return place(item)
            slide.from = contentX
            slide.to = originX + item * width
            slide.start()
        }
        /// Shows a page without an animation.
        function place(item) {
            slide.stop()
            forceLayout()
            positionViewAtIndex(item, ListView.Beginning)
            view.screen.didScroll(item * width, width)
            view.screen.didEndScrolling()
        }

        objectName: "imageCollectionView"
        y: view.container.y
        width: parent.width
        height: view.container.height
        orientation: ListView.Horizontal
        snapMode: ListView.SnapOneItem
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: Math.max(0, 2 * width)
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        currentIndex: view.screen.currentPage
        activeFocusOnTab: true
        focus: true
        model: view.screen.cells
        delegate: InAppMessageViewCell {
            width: imageCollectionView.width
            height: imageCollectionView.height
            container: Qt.rect(view.container.x, 0, view.container.width, view.container.height)
            isCurrent: index === view.screen.currentPage
            onPressed: view.screen.didSelect(index)
            onPressedBeside: view.screen.close()
            onTurned: count => view.screen.turn(count)
        }
        onActiveFocusChanged: view.screen?.setFocused(activeFocus)
        onContentXChanged: if ((moving || slide.running) && !keeping.running) view.screen.didScroll(contentX - originX, width)
        onMovementStarted: {
            slide.stop()
            view.screen.didEndScrolling()
        }
        onWidthChanged: keeping.restart()
        onContentWidthChanged: if (!moving && !slide.running) keeping.restart()
        Component.onCompleted: view.screen?.setFocused(activeFocus)

        PointHandler {
            onActiveChanged: view.screen.setPressed(active)
        }
        // Keeps the page in a window of another size. The pages take their new width after the list.
        Timer {
            id: keeping
            interval: 0
            onTriggered: imageCollectionView.place(view.screen.currentPage)
        }
        NumberAnimation {
            id: slide
            target: imageCollectionView
            property: "contentX"
            duration: Theme.slideDuration
            easing.type: Easing.InOutQuad
            onFinished: view.screen.didEndScrolling()
        }
    }
    // Above the list, which would scroll by itself.
    MouseArea {
        anchors.fill: imageCollectionView
        acceptedButtons: Qt.NoButton
        onWheel: event => {
            view.screen.turnWheel(event.angleDelta.x, event.angleDelta.y, event.phase === Qt.ScrollMomentum)
        }
    }
    PressArea {
        id: skipTodayLabel
        objectName: "skipTodayLabel"
        // The label stays with the picture in a wide window.
        x: Math.max(view.edge, view.container.x + view.container.width - 15 - width)
        y: view.container.y - 20 - height
        width: Math.min(skipText.implicitWidth, view.width - 2 * view.edge)
        height: skipText.height
        focusColor: "white"
        name: view.screen.skipTodayText
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onHeightChanged: view.layOut()
        onPressed: view.screen.skipToday()

        PaddedLabel {
            id: skipText
            width: parent.width
            padding: 5
            horizontalAlignment: Text.AlignRight
            size: 15
            color: Qt.rgba(1, 1, 1, 0.7)
            text: view.screen.skipTodayText
            Accessible.ignored: true
        }
    }
    IconButton {
        // The icon itself stands 40 points from the square's edges.
        readonly property real margin: Math.max(0, Math.min(40 - (width - 24) / 2, (view.container.width - width) / 2))

        objectName: "closeImageView"
        x: view.container.x + view.container.width - margin - width
        y: view.container.y + margin
        source: view.screen.closeAsset
        focusColor: "white"
        name: view.screen.closeLabel
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onPressed: view.screen.close()

        // Makes the white icon visible on a light picture.
        Rectangle {
            anchors.centerIn: parent
            z: -1
            width: 32
            height: width
            radius: width / 2
            color: Qt.rgba(0, 0, 0, 0.35)
        }
    }
    Column {
        id: bottomStack
        anchors.horizontalCenter: parent.horizontalCenter
        y: view.container.y + view.container.height + 16
        // The press area of the label is higher than the label.
        spacing: 20 - (confirmArea.height - confirmLabel.height) / 2
        onHeightChanged: view.layOut()

        PageControl {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: view.screen.showsPageControl
            screen: view.screen
            maximumWidth: view.width - 2 * Theme.margin
        }
        PressArea {
            id: confirmArea
            anchors.horizontalCenter: parent.horizontalCenter
            width: confirmLabel.implicitWidth + 40
            height: Math.max(Theme.touchSize, confirmLabel.height)
            focusColor: "white"
            name: view.screen.confirmText
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onPressed: view.screen.close()

            KitText {
                id: confirmLabel
                anchors.centerIn: parent
                size: 20
                font.bold: true
                color: "white"
                text: view.screen.confirmText
                Accessible.ignored: true
            }
        }
    }
}
