import QtQuick
import Orrelo

/// The place of a web page; empty without a browser engine.
Item {
    required property WebBridge model

    implicitWidth: model.ownWidth
    implicitHeight: model.height
}
