import QtQuick
import Orrelo.Kit

/// Draws one screen of a ScreenLayers list, with the animations of its arrival and its departure.
FocusScope {
    id: layer

    enum Entry { FromBelow, FromRight }

    required property ScreenLayers layers
    required property int entry
    /// The stack that contains the screen and gives it a bar; null for a presented screen.
    property NavigationBridge navigation: null
    required property ScreenLayerBridge modelData
    readonly property ScreenBridge screen: modelData.screen
    readonly property bool isLeaving: modelData.isLeaving
    readonly property bool isTop: modelData.isTop

    /// 0 when the screen is out of sight, 1 when it is in its place.
    property real presence: 1
    /// True while the screen leaves by a transition of the window instead of its own way.
    readonly property bool isRevealing: isLeaving && screen.leavesByReveal

    function slidesTo(side) {
        return entry === side && !screen.fades && !isRevealing
    }

    function takeFocus() {
        if (isTop && !isLeaving) forceActiveFocus()
    }

    visible: !modelData.isCovered
    enabled: isTop && !isLeaving
    opacity: screen.fades && !isRevealing ? presence : 1
    transform: Translate {
        x: layer.slidesTo(ScreenLayer.FromRight) || layer.isRevealing ? (1 - layer.presence) * layer.width : 0
        y: layer.slidesTo(ScreenLayer.FromBelow) ? (1 - layer.presence) * layer.height : 0
    }
    Component.onCompleted: {
        if (modelData.isAnimated) coming.start()
        loader.setSource(screen.delegate, { screen: layer.screen })
        takeFocus()
    }
    onIsTopChanged: takeFocus()
    onIsLeavingChanged: {
        if (!isLeaving) return
        coming.stop()
        if (isRevealing) revealing.start()
        else going.start()
    }

    NumberAnimation {
        id: coming
        target: layer
        property: "presence"
        from: 0
        to: 1
        duration: layer.screen.fades ? Theme.fadeDuration : Theme.slideDuration
        easing.type: Easing.OutCubic
        onFinished: layer.layers.didArrive(layer.modelData)
    }
    NumberAnimation {
        id: going
        target: layer
        property: "presence"
        to: 0
        duration: layer.screen.fades ? Theme.fadeDuration : Theme.slideDuration
        easing.type: Easing.InCubic
        onFinished: layer.layers.didLeave(layer.modelData)
    }
    KitAnimation {
        id: revealing
        motion: layer.screen.reveal
        target: layer
        property: "presence"
        onFinished: layer.layers.didLeave(layer.modelData)
    }
    // Keeps mouse input from the items beneath.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    ModalTopBar {
        id: bar
        width: parent.width
        height: layer.navigation && !layer.navigation.isBarHidden ? Theme.barHeight : 0
        z: 1
        title: layer.screen.title
        titleColor: layer.navigation?.titleColor ?? "black"
        hasBack: layer.screen.canClose
        onBack: layer.screen.close()
    }
    Loader {
        id: loader
        anchors { top: bar.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }
        clip: bar.visible
        focus: true
    }
}
