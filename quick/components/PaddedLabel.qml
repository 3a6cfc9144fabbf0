import QtQuick
import Orrelo.Kit

/// Text in a box of its own, with room around it.
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
