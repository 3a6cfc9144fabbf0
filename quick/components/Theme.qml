pragma Singleton
import QtQuick

/// Fonts, colours and sizes, in points.
QtObject {
    /// The text scale, a value from 1 to 2 that OrreloHost sets.
    property real textScale: 1
    /// True while the keyboard is in use; the focused item is marked then.
    property bool showsFocus: false
    /// The first suitable Korean font that is installed, with the application's font as fallback.
    property string fontFamily: {
        const families = Qt.fontFamilies()
        const wanted = ["Pretendard", "Noto Sans KR", "Noto Sans CJK KR", "NanumGothic", "NanumBarunGothic"]
        return wanted.find(name => families.includes(name)) ?? Qt.application.font.family
    }

    readonly property color text: Qt.rgba(0.239, 0.243, 0.247, 1)
    readonly property color secondaryText: Qt.rgba(0.582, 0.588, 0.592, 1)
    /// Small text that must be legible on white.
    readonly property color captionText: "#6b6d70"
    /// The border of a card that can be pressed.
    readonly property color outline: "#dcdee1"
    readonly property color divider: Qt.rgba(0.945, 0.949, 0.953, 1)
    readonly property color dialogDim: Qt.rgba(0, 0, 0, 0.4)
    readonly property color popUpDim: Qt.rgba(0, 0, 0, 0.7)
    readonly property color noticeFill: Qt.rgba(0, 0, 0, 0.05)
    readonly property color focus: "#1a73e8"

    readonly property real contentWidth: 480
    readonly property real margin: 20
    readonly property real cornerRadius: 8
    readonly property real barHeight: 44
    /// The height of a page's main button.
    readonly property real actionHeight: 56
    /// The distance between an information block and the edges of the page.
    readonly property real blockMargin: 25
    /// The minimum side length of a touch target.
    readonly property real touchSize: 44

    readonly property int slideDuration: 320
    readonly property int fadeDuration: 180
    readonly property int pressDuration: 300
}
