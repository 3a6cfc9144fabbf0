import QtQuick
import Orrelo.Kit

/// A grid of missions, each an icon above a name.
Rectangle {
    id: board

    required property StampBoardBridge model
    readonly property real padding: 12
    readonly property real cellWidth: (width - 2 * padding) / Math.max(1, model.columnCount)

    visible: model.cells.length > 0
    implicitHeight: grid.height + 2 * padding
    radius: 12
    color: "white"
    border { width: 1; color: Theme.divider }
    Accessible.role: Accessible.Table

    Grid {
        id: grid
        x: board.padding
        y: board.padding
        columns: board.model.columnCount

        Repeater {
            model: board.model.cells

            Item {
                id: cell

                required property StampCellBridge modelData

                width: board.cellWidth
                height: icon.height + label.height + 20
                Accessible.role: Accessible.Cell
                Accessible.name: modelData.name
                Accessible.ignored: modelData.name.length === 0

                KitImage {
                    id: icon
                    anchors.horizontalCenter: parent.horizontalCenter
                    y: 8
                    width: Math.max(0, Math.min(72, cell.width - 16))
                    height: width
                    model: cell.modelData.image
                }
                KitText {
                    id: label
                    anchors { top: icon.bottom; topMargin: 6; horizontalCenter: parent.horizontalCenter }
                    width: Math.max(0, cell.width - 8)
                    horizontalAlignment: Text.AlignHCenter
                    size: 12
                    maximumScale: 1.5
                    text: cell.modelData.name
                    Accessible.ignored: true
                }
            }
        }
    }
}
