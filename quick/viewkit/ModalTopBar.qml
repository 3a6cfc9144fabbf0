import QtQuick
import Orrelo.Kit

/// A bar with a centred title and a back button on the left.
Rectangle {
    id: bar

    property alias title: label.text
    property alias titleColor: label.color
    property bool hasBack: true

    signal back()

    color: "white"
    visible: height > 0
    clip: true

    IconButton {
        id: backButton
        anchors { left: parent.left; verticalCenter: parent.verticalCenter }
        visible: bar.hasBack
        source: Qt.resolvedUrl("assets/orl_ic_arrow_back.svg")
        name: "뒤로"
        focusRadius: -6
        onPressed: bar.back()
    }
    KitText {
        id: label
        anchors.centerIn: parent
        width: Math.max(0, parent.width - 2 * (backButton.width + 8))
        horizontalAlignment: Text.AlignHCenter
        color: "black"
        // The bar has a fixed height, so a title that does not fit is elided.
        size: 17
        maximumScale: 1.4
        font.bold: true
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        lineHeight: 1
        Accessible.role: Accessible.Heading
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 0.7
        color: Theme.divider
    }
}
