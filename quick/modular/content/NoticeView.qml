import QtQuick
import Orrelo

/// What the user has to know, a line each.
KitText {
    required property NoticeBridge model

    leftPadding: Theme.margin
    rightPadding: Theme.margin
    size: 12
    lineHeight: 1.4
    color: Theme.secondaryText
    text: model.text
}
