import QtQuick
import Orrelo.Kit

/// Plays an animation that waits for it. A view beneath keeps its own taps.
PressArea {
    id: button

    required property ImageBridge model

    name: "움직이는 이미지 재생"
    gesturePolicy: TapHandler.ReleaseWithinBounds
    focusFrame: icon
    focusRadius: icon.width / 2
    onPressed: model.play()
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
