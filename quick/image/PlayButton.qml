import QtQuick
import Orrelo.Kit

/// Plays an animation that waits for it, in the lower right corner of its picture. In a small picture the whole of it can
/// be pressed. A view beneath keeps its own taps on the rest of the picture.
PressArea {
    id: button

    required property ImageBridge model

    anchors { right: parent.right; bottom: parent.bottom }
    width: Math.min(Theme.touchSize, parent.width)
    height: Math.min(Theme.touchSize, parent.height)
    name: "움직이는 이미지 재생"
    gesturePolicy: TapHandler.ReleaseWithinBounds
    focusFrame: icon
    focusRadius: icon.width / 2
    onPressed: model.play()
    // A focus scope around it would otherwise hand its focus to the button again and could not be focused itself.
    onActiveFocusChanged: if (!activeFocus) focus = false

    Image {
        id: icon
        anchors.centerIn: parent
        width: Math.min(32, button.width, button.height)
        height: width
        source: Qt.resolvedUrl("assets/orl_ic_play.svg")
        sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
    }
}
