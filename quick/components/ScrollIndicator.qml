import QtQuick
import Orrelo.Kit

/// Shows which part of a scrolling item is in sight, at its right edge.
Rectangle {
    required property Flickable scroll

    parent: scroll
    visible: scroll.visibleArea.heightRatio < 1
    opacity: scroll.moving ? 0.5 : 0.2
    x: scroll.width - width - 3
    y: Math.min(scroll.visibleArea.yPosition * scroll.height, scroll.height - height - 4) + 2
    width: 4
    height: Math.max(24, scroll.visibleArea.heightRatio * scroll.height - 4)
    radius: 2
    color: Theme.text
}
