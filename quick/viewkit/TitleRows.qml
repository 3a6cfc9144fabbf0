import QtQuick
import Orrelo.Kit

/// The two title rows of a page or a block, and the spacing below them.
// blockHeights.h repeats what determines the height.
Column {
    id: rows

    property string first
    property string second

    bottomPadding: 12

    component Row: KitText {
        width: rows.width
        size: 24
        maximumScale: 1.6
        Accessible.role: Accessible.Heading
    }
    Row { text: rows.first }
    Row {
        font.bold: true
        text: rows.second
    }
}
