import QtQuick
import Orrelo.Kit

/// Text in the kit's font. `size` is that of the design, before the user's text scale.
Text {
    property real size: 14
    /// Text that is large as it stands need not grow as far.
    property real maximumScale: 2

    font.family: Theme.fontFamily
    font.pixelSize: size * Math.min(Theme.textScale, maximumScale)
    color: Theme.text
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    lineHeight: 1.15
    visible: text.length > 0
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
