import QtQuick
import Orrelo

Window {
    visible: true

    OrreloHost {
        id: host
        anchors.fill: parent
        pushesScreens: true
        textScale: 1.5

        Text {
            visible: !host.isCovered
            text: "host"
        }
    }
}
