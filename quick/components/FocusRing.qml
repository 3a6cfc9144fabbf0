import QtQuick

/// Marks its parent when it has the keyboard focus.
Rectangle {
    property real around: Theme.cornerRadius

    anchors { fill: parent; margins: -3 }
    z: 1
    visible: parent.activeFocus && Theme.showsFocus
    color: "transparent"
    radius: around + 3
    border { width: 2; color: Theme.focus }
}
