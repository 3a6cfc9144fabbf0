import QtQuick
import Orrelo

Window {
    visible: true
    width: 390
    height: 844

    OrreloHost {
        anchors.fill: parent

        Column {
            objectName: "page"
            anchors.fill: parent

            Text {
                objectName: "banner"
                text: "events"
            }
        }
    }
}
