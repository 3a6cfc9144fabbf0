import QtQuick
import Orrelo.Kit

/// The overlay shows an activity indicator above an image while its animation is being loaded, and a play button while the
/// animation waits for the user.
Loader {
    id: overlay

    required property ImageBridge model

    active: model.showsSpinner || model.showsPlayButton
    // A focus scope around it would otherwise hand its focus to the play button again and could not be focused itself.
    onActiveFocusChanged: if (!activeFocus) focus = false
    // The focus stays here when the play button goes. Without these, Tab would begin with the first item of the window.
    Keys.onTabPressed: leave(true, Qt.TabFocusReason)
    Keys.onBacktabPressed: leave(false, Qt.BacktabFocusReason)

    function leave(isForward, reason) {
        const next = nextItemInFocusChain(isForward)
        focus = false
        next.forceActiveFocus(reason)
    }

    sourceComponent: Item {
        Rectangle {
            anchors.centerIn: parent
            width: Math.min(36, parent.width, parent.height)
            height: width
            radius: width / 2
            visible: indicator.isAnimating
            // The indicator is visible on a dark background, too.
            color: Qt.rgba(1, 1, 1, 0.85)

            ActivityIndicator {
                id: indicator
                anchors { fill: parent; margins: 2 }
                isAnimating: overlay.model.showsSpinner
            }
        }
        // The button is in the corner, so that a view beneath keeps its own taps on the rest of the picture.
        Loader {
            anchors { right: parent.right; bottom: parent.bottom }
            active: overlay.model.showsPlayButton
            onActiveFocusChanged: if (!activeFocus) focus = false
            sourceComponent: PlayButton {
                width: Math.min(Theme.touchSize, overlay.width)
                height: Math.min(Theme.touchSize, overlay.height)
                model: overlay.model
            }
        }
    }
}
