import QtQuick
import Orrelo.Kit

/// A dot for each page. If there are more dots than fit, it shows the number of the page instead.
Item {
    id: control

    required property int count
    required property int currentPage
    property color currentColor
    property real maximumWidth
    /// A dot has 7 points and a distance of 9, both enlarged by half.
    readonly property real dotSize: 10.5
    readonly property real dotSpacing: 13.5
    readonly property bool fits: count * (dotSize + dotSpacing) - dotSpacing <= maximumWidth

    implicitWidth: fits ? dots.width : number.implicitWidth
    implicitHeight: fits ? dots.height : number.implicitHeight
    Accessible.ignored: true

    Row {
        id: dots
        spacing: control.dotSpacing

        Repeater {
            model: control.fits ? control.count : 0

            Rectangle {
                required property int index

                width: control.dotSize
                height: width
                radius: width / 2
                color: index === control.currentPage ? control.currentColor : Qt.rgba(0, 0, 0, 0.55)
            }
        }
    }
    KitText {
        id: number
        visible: !control.fits
        size: 15
        color: "white"
        text: (control.currentPage + 1) + " / " + control.count
        Accessible.ignored: true
    }
}
