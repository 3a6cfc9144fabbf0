import QtQuick
import Orrelo.Kit

/// Two title rows and a line whose tooltip overlaps the blocks below.
// TooltipInformationBridge.h repeats what determines the height.
Item {
    id: view

    required property TooltipInformationBridge model

    implicitHeight: column.height
    z: 1

    Column {
        id: column
        x: Theme.blockMargin
        width: parent.width - 2 * x

        TitleRows {
            width: parent.width
            first: view.model.firstTitle
            second: view.model.secondTitle
        }
        GuideLine {
            id: guide
            width: parent.width
            size: 16
            text: view.model.tooltipTitle
            asset: view.model.tooltipAsset
            isAssetFirst: true
            showsAsset: true
            canExplain: view.model.hasMessage
            onPressed: view.model.tooltipTitleTapped()
        }
    }
    TooltipView {
        readonly property real edge: 8

        x: Math.max(edge, guide.tailX(tooltip, width, view.width - edge, view))
        y: column.y + guide.y + guide.height - 4
        tooltip: view.model.tooltip
        availableWidth: view.width - 2 * edge
    }
}
