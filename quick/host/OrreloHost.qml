import QtQuick
import Orrelo.Kit

/// Wraps the host's own content in a window and draws the kit's screens over it. Use one for each window.
FocusScope {
    id: host

    default property alias content: hostContent.data
    /// The user's text scale; values are limited to the range from 1 to 2.
    property real textScale: 1
    /// True to push screens onto a stack over the host's content instead of presenting them. It cannot be
    /// turned off again.
    property bool pushesScreens: false
    onPushesScreensChanged: if (bridge.pushesScreens) pushesScreens = true
    /// True while a screen of the kit covers the host's content, which receives no input meanwhile.
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
