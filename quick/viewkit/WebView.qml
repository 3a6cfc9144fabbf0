import QtQuick
import Orrelo.Kit

/// The area of a web page; empty if the page has failed or there is no browser engine.
Item {
    id: place

    required property WebBridge model

    implicitWidth: model.ownWidth
    implicitHeight: model.height

    Loader {
        anchors.fill: parent
        active: !place.model.isEmpty
        Component.onCompleted: {
            if (place.model.hasBrowser) setSource(place.model.browser, { model: place.model })
        }
    }
}
