import QtQuick
import Orrelo.Kit

/// A message beside the label that leads to the exchange, or above it where both do not fit side by side.
PressArea {
    id: entry

    required property ExternalPointEntryBridge model
    readonly property real padding: 16
    readonly property real gap: 12
    readonly property real inner: Math.max(0, width - 2 * padding)
    readonly property bool isStacked: guide.implicitWidth + gap + label.implicitWidth > inner

    visible: !model.isHidden
    implicitWidth: guide.implicitWidth + gap + label.implicitWidth + 2 * padding
    implicitHeight: (isStacked ? guide.height + 8 + label.height : Math.max(guide.height, label.height)) + 2 * padding
    name: model.guideMessage + " " + model.exchangeLabel
    isEnabled: !model.isHidden
    focusRadius: 12
    onPressed: model.navigate()

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: "white"
        border { width: 1; color: Theme.divider }
    }
    KitText {
        id: guide
        x: entry.padding
        y: entry.isStacked ? entry.padding : (entry.height - height) / 2
        width: entry.isStacked ? entry.inner : entry.inner - label.width - entry.gap
        text: entry.model.guideMessage
        Accessible.ignored: true
    }
    PaddedLabel {
        id: label
        x: entry.isStacked ? entry.padding : entry.width - entry.padding - width
        y: entry.isStacked ? guide.y + guide.height + 8 : (entry.height - height) / 2
        width: Math.min(implicitWidth, entry.inner)
        topPadding: 4
        bottomPadding: 4
        leftPadding: 10
        rightPadding: 10
        radius: 8
        font.bold: true
        lineHeight: 1
        text: entry.model.exchangeLabel
        color: entry.model.exchangeTextColor
        backgroundColor: entry.model.exchangeColor
        Accessible.ignored: true
    }
}
