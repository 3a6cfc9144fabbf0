import QtQuick
import Orrelo.Kit

/// A list of boxes below a title.
// BoxedInformationListBridge.h repeats what determines the height.
Column {
    id: view

    required property BoxedInformationListBridge model

    leftPadding: Theme.blockMargin
    rightPadding: Theme.blockMargin
    spacing: 8

    KitText {
        width: view.width - 2 * Theme.blockMargin
        size: 18
        font.bold: true
        text: view.model.title
        Accessible.role: Accessible.Heading
    }
    Repeater {
        model: view.model.boxes

        InformationBox {
            required property InformationBoxBridge modelData

            width: view.width - 2 * Theme.blockMargin
            model: modelData
        }
    }
}
