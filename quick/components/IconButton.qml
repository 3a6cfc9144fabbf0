import QtQuick
import Orrelo.Kit

/// A picture of 24 points in a place that a finger can hit.
PressArea {
    id: button

    property alias source: icon.source

    implicitWidth: Theme.touchSize
    implicitHeight: Theme.touchSize
    focusRadius: 4

    Image {
        id: icon
        anchors.centerIn: parent
        width: 24
        height: 24
        sourceSize: Qt.size(width * Screen.devicePixelRatio, height * Screen.devicePixelRatio)
    }
}
