import QtQuick
import Orrelo.Kit

/// A stack of screens, each with a bar that shows its title and a back button.
FocusScope {
    id: stack

    required property NavigationBridge screen

    focus: true
    clip: true

    Repeater {
        model: stack.screen.layers

        ScreenLayer {
            width: stack.width
            height: stack.height
            layers: stack.screen.layers
            navigation: stack.screen
            entry: ScreenLayer.FromRight
        }
    }
}
