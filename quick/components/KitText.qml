import QtQuick
import Orrelo.Kit

/// Text in the kit's font. `size` is the size before the user's text scale is applied.
Text {
    property real size: 14
    /// The upper limit of the text scale; smaller for text that is already large.
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
