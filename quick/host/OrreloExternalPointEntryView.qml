import QtQuick
import Orrelo.Kit

/// An entry to the exchange of points, for the host's own layout. The service provides its texts. It is invisible
/// and takes no room unless the service enables the exchange. Give it a width, which its texts fill.
FocusScope {
    id: place

    implicitWidth: entry.view.isHidden ? 0 : view.implicitWidth
    implicitHeight: entry.view.isHidden ? 0 : view.implicitHeight
    visible: !entry.view.isHidden

    Binding {
        target: entry.view
        property: "window"
        value: place.Window.window
    }
    ExternalPointEntry {
        id: entry
    }
    ExternalPointEntryView {
        id: view
        anchors.fill: parent
        focus: true
        model: entry.view
    }
}
