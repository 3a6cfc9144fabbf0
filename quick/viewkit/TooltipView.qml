import QtQuick
import Orrelo.Kit

/// A text bubble whose tail points at the explained item. It is as wide as its text, up to a limit. While it is hidden
/// it has no size and its parts do not exist.
Item {
    id: view

    required property TooltipBridge tooltip
    required property real availableWidth
    // Grows with the text scale; otherwise large text would wrap more often.
    property real widthLimit: 200 * Theme.textScale
    /// A tail at the side of a narrower tooltip would exceed it.
    property real minimumWidth: 0
    readonly property real maximumWidth: Math.min(widthLimit, availableWidth)
    readonly property bool isShown: !tooltip.isHidden && opacity > 0

    /// The tooltip has faded out by itself.
    signal faded()

    visible: !tooltip.isHidden
    implicitWidth: bubble.implicitWidth
    implicitHeight: bubble.implicitHeight
    width: implicitWidth
    height: implicitHeight
    Accessible.role: Accessible.ToolTip
    Accessible.name: tooltip.text
    Accessible.ignored: !isShown

    Loader {
        id: bubble
        active: !view.tooltip.isHidden
        sourceComponent: Item {
            id: parts

            readonly property int shownCount: view.tooltip.shownCount

            function restart() {
                fading.stop()
                view.opacity = 1
                if (view.tooltip.autoDismiss) fading.start()
            }

            implicitWidth: Math.min(view.maximumWidth, Math.max(view.minimumWidth, measure.implicitWidth + 24))
            implicitHeight: label.implicitHeight + 20 + view.tooltip.tailHeight
            onShownCountChanged: restart()
            Component.onCompleted: if (shownCount > 0) restart()

            KitAnimation {
                id: fading
                motion: view.tooltip.fade
                target: view
                property: "opacity"
                onFinished: view.faded()
            }
            TooltipBubble {
                anchors { fill: parent; margins: -margin }
                tooltip: view.tooltip
            }
            KitText {
                id: measure
                visible: false
                text: view.tooltip.text.slice(0, 200)  // wider than any tooltip
                wrapMode: Text.NoWrap
            }
            KitText {
                id: label
                x: 12
                y: 10 + (view.tooltip.hasTailOnTop ? view.tooltip.tailHeight : 0)
                width: parts.implicitWidth - 24
                horizontalAlignment: Text.AlignHCenter
                maximumLineCount: 20
                elide: Text.ElideRight
                color: view.tooltip.textColor
                text: view.tooltip.text
                Accessible.ignored: true
            }
            TapHandler {
                enabled: view.isShown
                gesturePolicy: TapHandler.ReleaseWithinBounds  // keeps the tap from items beneath
                onTapped: view.tooltip.handleTapAction()
            }
            // Observes every tap in the window without accepting it.
            Item {
                parent: view.Window.contentItem
                anchors.fill: parent
                z: 1000
                visible: view.isShown && view.tooltip.dismissOnTouchOutside

                TapHandler {
                    onTapped: eventPoint => {
                        if (!view.contains(view.mapFromItem(parent, eventPoint.position))) view.tooltip.hide()
                    }
                }
            }
        }
    }
}
