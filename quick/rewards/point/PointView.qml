import QtQuick
import Orrelo.Kit

/// A balance of points beside the picture of the point system; a button if it opens the history.
PressArea {
    id: view

    required property PointBridge model
    property bool opensHistory: false
    property real sideMargin: Theme.margin

    visible: !model.isHidden
    implicitHeight: Math.max(lines.height, picture.visible ? picture.height : 0) + 32
    isEnabled: opensHistory
    role: opensHistory ? Accessible.Button : Accessible.StaticText
    name: model.accessibilityLabel

    Column {
        id: lines
        anchors {
            left: parent.left; leftMargin: view.sideMargin
            right: picture.visible ? picture.left : parent.right
            rightMargin: picture.visible ? 16 : view.sideMargin
            verticalCenter: parent.verticalCenter
        }
        spacing: 2

        Row {
            width: parent.width
            spacing: 2

            KitText {
                width: Math.min(implicitWidth, parent.width - (arrow.visible ? arrow.width + parent.spacing : 0))
                maximumLineCount: 4
                elide: Text.ElideRight
                text: view.model.myPoint
                Accessible.ignored: true
            }
            Image {
                id: arrow
                anchors.verticalCenter: parent.verticalCenter
                visible: view.opensHistory
                width: 16 * Theme.textScale
                height: width
                source: view.model.goToHistoryAsset
                sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
            }
        }
        Flow {
            width: parent.width
            spacing: 6

            KitText {
                width: Math.min(implicitWidth, parent.width)
                size: 32
                maximumScale: 1.5
                font.bold: true
                text: view.model.pointAmount
                Accessible.ignored: true
            }
            KitText {
                width: Math.min(implicitWidth, parent.width)
                size: 32
                maximumScale: 1.5
                maximumLineCount: 2
                elide: Text.ElideRight
                font.bold: true
                text: view.model.pointUnit
                Accessible.ignored: true
            }
        }
    }
    KitImage {
        id: picture
        anchors { right: parent.right; rightMargin: view.sideMargin; verticalCenter: parent.verticalCenter }
        width: 64
        height: 64
        model: view.model.image
    }
}
