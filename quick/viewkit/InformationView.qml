import QtQuick
import Orrelo.Kit

/// Two title rows above a text.
// InformationBridge.h repeats what determines the height.
Column {
    id: view

    required property InformationBridge model

    leftPadding: Theme.blockMargin
    rightPadding: Theme.blockMargin

    TitleRows {
        width: view.width - 2 * Theme.blockMargin
        first: view.model.firstTitle
        second: view.model.secondTitle
    }
    KitText {
        width: view.width - 2 * Theme.blockMargin
        size: 16
        color: Theme.secondaryText
        text: view.model.guideMessage
    }
}
