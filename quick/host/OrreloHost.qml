import QtQuick
import Orrelo

/// Wraps what a host shows itself in a window, and draws the kit's screens over it. One for each window.
FocusScope {
    id: host

    default property alias content: hostContent.data
    /// How much larger than designed the user wants text to be, from 1 to 2.
    property real textScale: 1
    /// A screen of the kit lies over the host's content, which takes no input meanwhile.
    readonly property bool isCovered: bridge.layers.top !== null

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
        if (isCovered) bridge.layers.top.close()
    }

    HostBridge {
        id: bridge
        window: host.Window.window
    }
    FocusScope {
        id: hostContent
        anchors.fill: parent
        focus: true
        enabled: !host.isCovered
        onEnabledChanged: if (enabled) forceActiveFocus()
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
