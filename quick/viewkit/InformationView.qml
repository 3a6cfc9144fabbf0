import QtQuick
import Orrelo.Kit

/// Two title rows above a text.
Column {
    id: view

    required property InformationBridge model

    leftPadding: model.margin
    rightPadding: model.margin

    TitleRows {
        width: view.width - 2 * view.model.margin
        first: view.model.firstTitle
        second: view.model.secondTitle
    }
    Item {
        width: 1
        height: view.model.spacing
    }
    KitText {
        width: view.width - 2 * view.model.margin
        size: 16
        color: Theme.secondaryText
        text: view.model.guideMessage
    }
}
