import QtQuick
import Orrelo

/// Two rows of title and a text.
Column {
    id: view

    required property InformationBridge model

    leftPadding: model.margin
    rightPadding: model.margin

    KitText {
        width: view.width - 2 * view.model.margin
        size: 24
        maximumScale: 1.6
        text: view.model.firstTitle
        Accessible.role: Accessible.Heading
    }
    KitText {
        width: view.width - 2 * view.model.margin
        size: 24
        maximumScale: 1.6
        font.bold: true
        text: view.model.secondTitle
        Accessible.role: Accessible.Heading
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
