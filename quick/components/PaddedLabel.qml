import QtQuick
import Orrelo.Kit

/// Text with padding on a background.
KitText {
    property real radius: 0
    property color backgroundColor: "transparent"

    Rectangle {
        anchors.fill: parent
        z: -1
        radius: parent.radius
        color: parent.backgroundColor
    }
}
