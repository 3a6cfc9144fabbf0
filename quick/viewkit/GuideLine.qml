import QtQuick
import Orrelo.Kit

/// A line with the picture that says that it explains itself when it is tapped.
PressArea {
    id: guide

    required property string text
    property url asset
    property bool isAssetFirst: false
    property bool showsAsset: canExplain
    /// Without anything to say the line is plain.
    required property bool canExplain
    property real size: 12

    /// Where a tooltip of this width stands, for its tail to point at the middle of the picture, or as near as
    /// `room` allows; in `item`'s coordinates.
    function tailX(tooltip, tooltipWidth, room, item) {
        const middle = mapToItem(item, row.x + icon.x + icon.width / 2, 0).x
        return Math.max(0, Math.min(room - tooltipWidth, middle - 7 - tooltip.horizontalBias * tooltipWidth))
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
        layoutDirection: guide.isAssetFirst ? Qt.RightToLeft : Qt.LeftToRight

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
            sourceSize: Qt.size(48, 48)
        }
    }
}
