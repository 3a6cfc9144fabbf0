import QtQuick
import Orrelo.Kit

/// An entry of the calendar's legend.
Row {
    id: legend

    property alias text: label.text
    property alias color: mark.color
    property alias border: mark.border

    spacing: 4

    Rectangle {
        id: mark
        anchors.verticalCenter: parent.verticalCenter
        width: 12 * Theme.textScale
        height: width
        radius: width / 3
        color: "transparent"
    }
    KitText {
        id: label
        anchors.verticalCenter: parent.verticalCenter
        size: 10
    }
}
