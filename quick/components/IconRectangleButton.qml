import QtQuick
import Orrelo.Kit

/// An icon above a title, with an optional badge at the icon's corner.
PressArea {
    id: button

    property alias source: icon.source
    property alias text: title.text
    property alias badgeText: badge.text
    property alias badgeColor: badge.backgroundColor
    property alias badgeTextColor: badge.color

    name: badgeText.length > 0 ? text + ", " + badgeText : text
    implicitWidth: Math.max(Theme.touchSize, title.implicitWidth)
    implicitHeight: column.y + column.height

    Column {
        id: column
        y: 4
        width: parent.width
        spacing: 4

        Image {
            id: icon
            anchors.horizontalCenter: parent.horizontalCenter
            width: 40
            height: 40
            sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
        }
        KitText {
            id: title
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            color: Qt.rgba(0.478, 0.565, 0.62, 1)
            Accessible.ignored: true
        }
    }
    PaddedLabel {
        id: badge
        anchors { left: parent.horizontalCenter; leftMargin: 8; top: parent.top }
        width: Math.max(implicitWidth, height)
        leftPadding: 5
        rightPadding: 5
        topPadding: 1
        bottomPadding: 1
        horizontalAlignment: Text.AlignHCenter
        radius: height / 2
        size: 11
        maximumScale: 1.3
        font.bold: true
        color: "white"
        Accessible.ignored: true
    }
}
