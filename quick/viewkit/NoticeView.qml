import QtQuick
import Orrelo.Kit

/// A notice with one line per item.
KitText {
    required property NoticeBridge model

    leftPadding: 25
    rightPadding: 25
    size: 12
    lineHeight: 1.4
    color: Theme.secondaryText
    text: model.text
}
