import QtQuick
import Orrelo.Kit

/// Items that open the kit's home. They are visible while a user is signed in. Any items may be in it, such as
/// texts and pictures; each of them can be pressed, also by the keyboard and by assistive technology. Create it
/// after the kit is initialized; otherwise it stays invisible.
Item {
    id: view

    default property alias content: items.data
    /// The name in the events that the view reports; it reports none without a name.
    property string entryName

    implicitWidth: items.childrenRect.x + items.childrenRect.width
    implicitHeight: items.childrenRect.y + items.childrenRect.height

    CampaignEntryItem {
        anchors.fill: parent
        entryName: view.entryName
        content: items

        Item {
            id: items
            anchors.fill: parent
        }
    }
}
