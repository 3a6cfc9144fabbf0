import QtQuick
import Orrelo.Kit

/// The place of a web page; empty where the page has failed, and without a browser engine.
Item {
    id: place

    required property WebBridge model

    implicitWidth: model.ownWidth
    implicitHeight: model.height

    Loader {
        anchors.fill: parent
        active: !place.model.isEmpty
        Component.onCompleted: {
            if (place.model.browser.toString().length > 0) setSource(place.model.browser, { model: place.model })
        }
    }
}
