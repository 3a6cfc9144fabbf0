import QtQuick
import Orrelo.Kit

/// A round button that opens the kit's home, with a tooltip beside it. The service defines its icon, its colour
/// and its message. The button lies at the right edge; place it over the page:
/// `anchors { right: parent.right; bottom: parent.bottom }`. It appears when a user signs in after it was created.
Item {
    implicitWidth: button.implicitWidth
    implicitHeight: button.implicitHeight

    CampaignFloatingActionButtonItem {
        id: button
        anchors.fill: parent
    }
}
