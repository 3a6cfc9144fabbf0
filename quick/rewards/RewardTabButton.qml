import QtQuick
import Orrelo.Kit

/// A button of the reward tab.
IconRectangleButton {
    required property IconRectangleButtonBridge model

    visible: !model.isHidden
    source: model.asset
    text: model.title
    badgeText: model.badgeText
    badgeColor: model.badgeColor
    badgeTextColor: model.badgeTextColor
}
