import QtQuick
import Orrelo.Kit

/// Wraps what a host shows itself in a window, and draws the kit's screens over it. One for each window.
FocusScope {
    id: host

    default property alias content: hostContent.data
    /// How much larger than designed the user wants text to be, from 1 to 2.
    property real textScale: 1
    /// Screens are pushed onto a stack over the host's content instead of being presented, from when this is first true.
    property bool pushesScreens: false
    /// A screen of the kit lies over the host's content, which takes no input meanwhile.
    readonly property bool isCovered: bridge.top !== null

    focus: true
    Binding {
        target: Theme
        property: "textScale"
        value: Math.min(2, Math.max(1, host.textScale))
    }
    Binding {
        target: Theme
        property: "showsFocus"
        value: bridge.usesKeyboard
    }
    Keys.onEscapePressed: event => closeTop(event)
    Keys.onBackPressed: event => closeTop(event)

    function closeTop(event) {
        event.accepted = isCovered
        if (isCovered && !event.isAutoRepeat) bridge.top.close()
    }

    HostBridge {
        id: bridge

        readonly property ScreenBridge top: layers.top ?? navigation?.layers.top ?? null

        window: host.Window.window
        pushesScreens: host.pushesScreens
    }
    FocusScope {
        id: hostContent
        anchors.fill: parent
        focus: true
        enabled: !host.isCovered
        onEnabledChanged: if (enabled) forceActiveFocus()
    }
    Loader {
        anchors.fill: parent
        active: bridge.navigation !== null
        sourceComponent: NavigationController {
            screen: bridge.navigation
            enabled: bridge.layers.top === null
        }
    }
    Repeater {
        model: bridge.layers

        ScreenLayer {
            width: host.width
            height: host.height
            layers: bridge.layers
            entry: ScreenLayer.FromBelow
        }
    }
}
