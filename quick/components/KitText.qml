import QtQuick
import Orrelo

/// Text in the kit's font. `size` is that of the design, before the user's text scale.
Text {
    property real size: 14

    font.family: Theme.fontFamily
    font.pixelSize: size * Theme.textScale
    color: Theme.text
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
    lineHeight: 1.15
    visible: text.length > 0
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
