import QtQuick
import Orrelo

/// A stack of screens under a bar with the title and the way back.
FocusScope {
    id: navigation

    required property NavigationBridge screen

    focus: true
    ModalTopBar {
        id: bar
        width: parent.width
        height: navigation.screen.isBarHidden ? 0 : Theme.barHeight
        z: 1
        title: navigation.screen.layers.top?.title ?? ""
        titleColor: navigation.screen.titleColor
        hasBack: navigation.screen.canGoBack
        onBack: navigation.screen.close()
    }
    Item {
        anchors { top: bar.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }
        clip: true

        Repeater {
            model: navigation.screen.layers

            ScreenLayer {
                width: navigation.width
                height: parent?.height ?? 0
                layers: navigation.screen.layers
                entry: ScreenLayer.FromRight
            }
        }
    }
}
