import QtQuick
import Orrelo.Kit

/// A tab of the inspector.
PressArea {
    id: tab

    required property bool isSelected

    role: Accessible.PageTab
    Accessible.selected: isSelected
    implicitWidth: label.implicitWidth + 24
    implicitHeight: Theme.touchSize

    KitText {
        id: label
        anchors.centerIn: parent
        text: tab.name
        size: 15
        maximumScale: 1.2
        font.bold: tab.isSelected
        color: tab.isSelected ? Theme.focus : Theme.captionText
        Accessible.ignored: true
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: 12; rightMargin: 12 }
        height: 3
        radius: 1.5
        color: Theme.focus
        visible: tab.isSelected
    }
}
