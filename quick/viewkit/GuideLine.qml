import QtQuick
import Orrelo.Kit

/// A line of text with an icon; a tap on it shows an explanation.
// blockHeights.h repeats what determines the height.
PressArea {
    id: guide

    required property string text
    property url asset
    property bool isAssetFirst: false
    property bool showsAsset: canExplain
    /// False if there is no explanation; the line cannot be pressed then.
    required property bool canExplain
    property real size: 12

    /// The x coordinate, relative to `item`, of a tooltip of this width whose tail points at the middle of
    /// the icon, or as near to it as `totalWidth` allows.
    function tailX(tooltip, tooltipWidth, totalWidth, item) {
        const middle = mapToItem(item, row.x + icon.x + icon.width / 2, 0).x
        return Math.max(0, Math.min(totalWidth - tooltipWidth, middle - 7 - tooltip.horizontalBias * tooltipWidth))
    }

    implicitHeight: Math.max(32, row.height + 8)
    visible: text.length > 0
    isEnabled: canExplain
    role: isEnabled ? Accessible.Button : Accessible.StaticText
    name: text
    focusRadius: 2

    Row {
        id: row
        anchors.verticalCenter: parent.verticalCenter
        spacing: 5
        LayoutMirroring.enabled: guide.isAssetFirst

        KitText {
            width: Math.min(implicitWidth, guide.width - icon.width - row.spacing)
            size: guide.size
            color: Theme.secondaryText
            text: guide.text
            Accessible.ignored: true
        }
        Image {
            id: icon
            anchors.verticalCenter: parent.verticalCenter
            visible: guide.showsAsset
            width: guide.size * Theme.textScale
            height: width
            source: guide.asset
            sourceSize { width: 48; height: 48 }
        }
    }
}
