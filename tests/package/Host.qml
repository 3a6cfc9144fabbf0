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
        OrreloCampaignEntryView {
            entryName: "packaged host"

            Text { text: "events" }
        }
        OrreloCampaignFloatingActionButton { anchors { right: parent.right; bottom: parent.bottom } }
    }
}
