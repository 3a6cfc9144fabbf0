import QtQuick
import Orrelo.Kit

/// A round button at the trailing edge, with its tooltip beside it.
Item {
    id: view

    required property CampaignFloatingActionButtonBridge model
    readonly property Item button: button
    readonly property real gap: 8

    implicitWidth: model.inset + button.width + 2 * gap + model.maximumTooltipWidth
    implicitHeight: button.height + 2 * model.inset

    PressArea {
        id: button
        anchors { right: parent.right; rightMargin: view.model.inset; verticalCenter: parent.verticalCenter }
        width: 56
        height: width
        name: view.model.name
        focusRadius: width / 2
        onPressed: view.model.tap(button)

        Repeater {
            model: 3

            Rectangle {
                required property int index

                anchors { fill: parent; margins: -index - 1; topMargin: 2 - index; bottomMargin: -3 - index }
                radius: height / 2
                color: Qt.rgba(0, 0, 0, 0.06)
            }
        }
        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: view.model.color
        }
        Image {
            anchors.fill: icon
            visible: !icon.visible
            source: view.model.placeholder
            sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
        }
        KitImage {
            id: icon
            anchors.centerIn: parent
            width: 28
            height: 28
            model: view.model.icon
        }
    }
    TooltipView {
        x: button.x - view.gap - width
        // The tail's tip lies at the side of the button.
        y: button.y + button.height / 2 - height
        tooltip: view.model.tooltip
        availableWidth: Math.max(0, button.x - 2 * view.gap)
        minimumWidth: 176
        widthLimit: view.model.maximumTooltipWidth
        onFaded: view.model.tooltipDidFade()
    }
}
