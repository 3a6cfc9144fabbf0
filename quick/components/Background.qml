import QtQuick

/// An image stretched over the whole screen, behind its content.
Image {
    anchors.fill: parent
    fillMode: Image.Stretch
    sourceSize { width: 64; height: 512 }
    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        z: -1
        color: "white"
    }
}
