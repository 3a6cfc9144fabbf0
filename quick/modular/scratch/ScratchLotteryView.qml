import QtQuick
import Orrelo.Kit

/// A scratch card: a result below a mask that the user scratches off.
// ScratchLotteryBridge.h repeats what determines the height.
FocusScope {
    id: card

    required property ScratchLotteryBridge model
    readonly property real cornerRadius: 4

    function pressBy(event) {
        if (!event.isAutoRepeat) model.press()
    }

    implicitHeight: 80
    objectName: model.accessibilityIdentifier
    // A focused card keeps the focus when it can no longer be pressed, until the user moves it on.
    activeFocusOnTab: model.isPressable || activeFocus
    Accessible.role: model.isPressable ? Accessible.Button : Accessible.StaticText
    Accessible.name: model.accessibilityLabel
    Accessible.focusable: model.isPressable
    Accessible.onPressAction: model.press()
    Keys.onReturnPressed: event => pressBy(event)
    Keys.onEnterPressed: event => pressBy(event)
    Keys.onSpacePressed: event => pressBy(event)

    Rectangle {
        anchors.fill: parent
        radius: card.cornerRadius
        color: card.model.backgroundColor
        border { width: 2; color: "white" }
    }
    Row {
        anchors.centerIn: parent
        spacing: 8

        Image {
            anchors.verticalCenter: parent.verticalCenter
            width: 24
            height: 24
            source: card.model.resultAsset
            sourceSize { width: 72; height: 72 }
        }
        KitText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, card.width - 64)
            size: 16
            maximumScale: 1.5
            font.weight: Font.ExtraBold
            color: card.model.resultColor
            text: card.model.result
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    ScratchMaskItem {
        anchors.fill: parent
        visible: !card.model.isMaskHidden
        lottery: card.model
    }
    MouseArea {
        anchors.fill: parent
        enabled: card.model.isPressable
        preventStealing: card.model.keepsTouches
        onPressed: mouse => card.model.touchesBegan(mouse.x, mouse.y)
        onPositionChanged: mouse => card.model.touchesMoved(mouse.x, mouse.y)
        onReleased: card.model.touchesEnded()
        onCanceled: card.model.touchesEnded()
    }
    FocusRing {
        around: card.cornerRadius
    }
}
