import QtQuick
import Orrelo.Kit

/// Blocks in a column, each followed by its own spacing. A block with nothing to show takes no space.
Column {
    id: stack

    required property StackBridge model

    Repeater {
        model: stack.model.rows

        Item {
            id: row

            required property var modelData
            readonly property Item block: loader.item as Item
            readonly property bool hasBlock: block?.visible ?? false
            readonly property real exactHeight: (hasBlock ? block.height : 0) + modelData.spacingAfter

            width: stack.width
            // In whole device pixels, so that images further down are drawn without resampling. Rounded down, so that
            // images without spacing leave no gap.
            height: Math.floor(exactHeight * Screen.devicePixelRatio) / Screen.devicePixelRatio
            z: block?.z ?? 0

            Loader {
                id: loader
                x: row.modelData.inset ?? (row.width - width) / 2
                // Limited to the page's width, whatever width the service requests.
                width: row.modelData.inset === null ? Math.min(item?.implicitWidth ?? 0, row.width)
                                                    : row.width - 2 * row.modelData.inset
                Component.onCompleted: {
                    if (row.modelData.block.delegate.toString().length > 0)
                        setSource(row.modelData.block.delegate, { model: row.modelData.block })
                }
            }
        }
    }
}
