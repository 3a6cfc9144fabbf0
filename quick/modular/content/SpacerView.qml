import QtQuick
import Orrelo.Kit

Item {
    required property SpacerBridge model

    implicitHeight: model.height
}
