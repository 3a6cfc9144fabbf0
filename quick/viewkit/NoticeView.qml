import QtQuick
import Orrelo.Kit

/// A notice with one line per item.
// NoticeBridge.h repeats what determines the height.
KitText {
    required property NoticeBridge model

    leftPadding: Theme.blockMargin
    rightPadding: Theme.blockMargin
    size: 12
    lineHeight: 1.4
    color: Theme.secondaryText
    text: model.text
}
