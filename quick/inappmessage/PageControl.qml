import QtQuick
import Orrelo.Kit

/// A dot for each page. If there are more dots than fit, it shows the number of the page instead.
Item {
    id: control

    required property int count
    required property int currentPage
    property color currentColor
    property real maximumWidth

    implicitWidth: dots.visible ? dots.width : number.implicitWidth
    implicitHeight: dots.visible ? dots.height : number.implicitHeight
    Accessible.ignored: true

    Row {
        id: dots
        visible: width <= control.maximumWidth
        // 7 points each, enlarged by half.
        spacing: 13.5

        Repeater {
            model: Math.min(control.count, 100)

            Rectangle {
                required property int index

                width: 10.5
                height: width
                radius: width / 2
                color: index === control.currentPage ? control.currentColor : Qt.rgba(0, 0, 0, 0.55)
            }
        }
    }
    KitText {
        id: number
        visible: !dots.visible
        size: 15
        color: "white"
        text: (control.currentPage + 1) + " / " + control.count
        Accessible.ignored: true
    }
}
