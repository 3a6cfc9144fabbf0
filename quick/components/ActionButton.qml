import QtQuick
import Orrelo.Kit

/// A filled button.
PressArea {
    id: button

    property alias text: label.text
    property color fill
    property color textColor
    property real minimumHeight: 48

    name: text
    implicitHeight: Math.max(minimumHeight, label.implicitHeight + 24)

    Rectangle {
        anchors.fill: parent
        radius: Theme.cornerRadius
        color: button.fill
    }
    KitText {
        id: label
        anchors { left: parent.left; right: parent.right; margins: 16; verticalCenter: parent.verticalCenter }
        horizontalAlignment: Text.AlignHCenter
        size: 16
        font.bold: true
        color: button.textColor
        Accessible.ignored: true
    }
}
