import QtQuick
import Orrelo.Kit

/// Two title rows and a line whose tooltip overlaps the blocks below.
Item {
    id: view

    required property TooltipInformationBridge model

    implicitHeight: column.height
    z: model.zPosition

    Column {
        id: column
        x: view.model.margin
        width: parent.width - 2 * x

        TitleRows {
            width: parent.width
            first: view.model.firstTitle
            second: view.model.secondTitle
        }
        Item {
            width: 1
            height: view.model.spacing
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
        // Grows with the text scale; otherwise large text would wrap more often.
        maximumWidth: Math.min(view.model.tooltipMaximumWidth * Theme.textScale, view.width - 2 * edge)
    }
}
