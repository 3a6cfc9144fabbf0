import QtQuick
import Orrelo

Item {
    required property SpacerBridge model

    implicitHeight: model.height
}
