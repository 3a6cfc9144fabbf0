import QtQuick
import Orrelo.Kit

/// A card with the calendar of the month.
Rectangle {
    id: view

    required property CampaignCalendarBridge model
    readonly property real padding: width < 320 ? 12 : 16
    readonly property real cellWidth: (width - 2 * padding) / model.columnCount
    readonly property real cellHeight: Math.min(cellWidth * 1.15, 48)

    implicitHeight: column.height + 2 * padding + 8
    color: "white"
    radius: 12
    border { width: 1; color: Theme.divider }

    Column {
        id: column
        x: view.padding
        y: view.padding + 4
        width: parent.width - 2 * view.padding

        Item {
            width: parent.width
            height: Math.max(month.height, legend.height)

            KitText {
                id: month
                anchors { left: parent.left; leftMargin: 4; verticalCenter: parent.verticalCenter }
                size: 20
                font.bold: true
                text: view.model.monthText
                Accessible.role: Accessible.Heading
            }
            Row {
                id: legend
                anchors { right: parent.right; rightMargin: 4; verticalCenter: parent.verticalCenter }
                spacing: 12

                CalendarLegend {
                    text: view.model.todayLegend
                    border { width: 1.5; color: view.model.primaryColor }
                }
                CalendarLegend {
                    text: view.model.attendanceLegend
                    color: view.model.primaryColor
                }
            }
        }
        Item {
            width: 1
            height: 12
        }
        KitText {
            x: 4
            width: parent.width - 8
            text: view.model.firstDescription
        }
        KitText {
            x: 4
            width: parent.width - 8
            font.bold: true
            color: view.model.secondDescriptionColor
            text: view.model.secondDescription
        }
        Item {
            width: 1
            height: 12
        }
        Grid {
            columns: view.model.columnCount
            Accessible.role: Accessible.Table
            Accessible.name: view.model.monthText

            Repeater {
                model: view.model.cells

                CalendarCell {
                    width: view.cellWidth
                    height: view.cellHeight
                }
            }
        }
    }
}
