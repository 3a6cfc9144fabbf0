import QtQuick
import Orrelo.Kit

/// A spinning activity indicator; invisible unless `isAnimating`.
Item {
    id: indicator

    property bool isAnimating

    visible: isAnimating
    Accessible.role: Accessible.Indicator
    Accessible.name: "불러오는 중"

    Repeater {
        id: dots
        model: 8

        Rectangle {
            required property int index
            readonly property real angle: index * Math.PI / 4

            x: indicator.width / 2 + Math.sin(angle) * indicator.width * 0.36 - width / 2
            y: indicator.height / 2 - Math.cos(angle) * indicator.height * 0.36 - height / 2
            width: indicator.width * 0.14
            height: width
            radius: width / 2
            color: Theme.text
            opacity: 0.15 + 0.85 * (index / 7)
        }
    }
    RotationAnimation on rotation {
        running: indicator.visible
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: 900
    }
}
