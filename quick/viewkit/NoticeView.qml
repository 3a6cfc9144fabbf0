import QtQuick
import Orrelo.Kit

/// What the user has to know, a line each.
KitText {
    required property NoticeBridge model

    leftPadding: 25
    rightPadding: 25
    size: 12
    lineHeight: 1.4
    color: Theme.secondaryText
    text: model.text
}
