import QtQuick
import Orrelo.Kit

/// A row of the history: the date, two lines of text and the amount. Where these do not fit side by side, the amount
/// stands below the text. Only texts that are too long for a list are cut.
Item {
    id: cell

    required property string date
    required property string title
    required property string body
    required property string amount
    required property string unit
    required property color amountColor
    required property string label

    readonly property real gap: 12
    readonly property real contentX: (width - contentWidth) / 2
    readonly property real contentWidth: Math.min(width, Theme.contentWidth) - 2 * Theme.margin
    readonly property real dateWidth: 44 * Theme.textScale
    readonly property real besideWidth: contentWidth - dateWidth - sum.implicitSum - 2 * gap
    readonly property bool isStacked: besideWidth < 130 * Theme.textScale

    implicitHeight: (isStacked ? sum.y + sum.height : Math.max(lines.height, day.height, sum.height) + lines.y) + 16
    Accessible.role: Accessible.ListItem
    Accessible.name: label

    KitText {
        id: day
        x: cell.contentX
        y: lines.y + titleLabel.baselineOffset - baselineOffset
        width: cell.dateWidth
        color: Theme.secondaryText
        text: cell.date
        Accessible.ignored: true
    }
    Column {
        id: lines
        x: cell.contentX + (cell.isStacked && cell.date.length === 0 ? 0 : cell.dateWidth + cell.gap)
        y: 16
        width: cell.isStacked ? cell.contentX + cell.contentWidth - x : cell.besideWidth
        spacing: 4

        KitText {
            id: titleLabel
            width: parent.width
            size: 16
            maximumLineCount: 10
            elide: Text.ElideRight
            text: cell.title
            Accessible.ignored: true
        }
        KitText {
            width: parent.width
            size: 12
            maximumLineCount: 10
            elide: Text.ElideRight
            color: Theme.secondaryText
            text: cell.body
            Accessible.ignored: true
        }
    }
    Flow {
        id: sum

        readonly property real implicitSum: amountLabel.implicitWidth + (unitLabel.visible ? unitLabel.implicitWidth + spacing : 0)

        x: cell.contentX + cell.contentWidth - width
        y: cell.isStacked ? lines.y + lines.height + 8 : 16
        width: Math.min(implicitSum, cell.contentWidth)
        spacing: 3

        KitText {
            id: amountLabel
            width: Math.min(implicitWidth, sum.width)
            size: 16
            font.bold: true
            color: cell.amountColor
            text: cell.amount
            Accessible.ignored: true
        }
        KitText {
            id: unitLabel
            width: Math.min(implicitWidth, sum.width)
            size: 16
            maximumLineCount: 2
            elide: Text.ElideRight
            font.bold: true
            color: cell.amountColor
            text: cell.unit
            Accessible.ignored: true
        }
    }
    DividerView {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: cell.contentX; rightMargin: cell.contentX }
    }
}
