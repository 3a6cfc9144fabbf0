import QtQuick
import Orrelo.Kit

/// A dot for each page. If there are more dots than fit, it shows the number of the page instead.
Item {
    id: control

    required property InAppMessageScreenBridge screen
    property real maximumWidth
    readonly property int count: screen.cells.length
    readonly property bool fits: screen.showsDots(maximumWidth)

    implicitWidth: fits ? dots.width : number.implicitWidth
    implicitHeight: fits ? dots.height : number.implicitHeight
    Accessible.ignored: true

    Row {
        id: dots
        spacing: control.screen.dotSpacing

        Repeater {
            model: control.fits ? control.count : 0

            Rectangle {
                required property int index

                width: control.screen.dotSize
                height: width
                radius: width / 2
                color: index === control.screen.currentPage ? control.screen.currentPageColor : Qt.rgba(0, 0, 0, 0.55)
            }
        }
    }
    KitText {
        id: number
        visible: !control.fits
        size: 15
        color: "white"
        text: (control.screen.currentPage + 1) + " / " + control.count
        Accessible.ignored: true
    }
}
