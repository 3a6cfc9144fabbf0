import QtQuick
import Orrelo.Kit

/// A line of text on a background.
Rectangle {
    property alias text: label.text
    property alias textColor: label.color

    implicitHeight: label.height + 24
    radius: Theme.cornerRadius
    color: Theme.divider

    KitText {
        id: label
        anchors { left: parent.left; right: parent.right; margins: 16; verticalCenter: parent.verticalCenter }
        horizontalAlignment: Text.AlignHCenter
    }
}
