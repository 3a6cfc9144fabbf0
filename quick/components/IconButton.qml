import QtQuick
import Orrelo.Kit

/// An icon of 24 points in an area that is large enough for a finger.
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
        sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
    }
}
