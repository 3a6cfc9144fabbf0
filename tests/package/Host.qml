import QtQuick
import Orrelo

Window {
    id: window

    property alias isCovered: host.isCovered
    property int heard: 0

    visible: true
    Component.onCompleted: {
        Orrelo.setUser("user-1", Orrelo.OptIn, { level: 3 })
        Orrelo.sendEvent("started", { from: ["package", 1, true] })
        Orrelo.showCampaignOfType(Orrelo.Attendance, host)
    }

    Connections {
        target: Orrelo
        function onUserEventDidOccur(name, values) { window.heard++ }
    }

    OrreloHost {
        id: host
        anchors.fill: parent
        pushesScreens: true
        textScale: 1.5

        Text {
            visible: !host.isCovered
            text: "host"
        }
        OrreloCampaignEntryView {
            entryName: "packaged host"

            Text { text: "events" }
        }
        OrreloCampaignFloatingActionButton { anchors { right: parent.right; bottom: parent.bottom } }
    }
}
