import QtQuick

/// The shop's own picture of a notification: slides in from above and stays until it is opened or removed.
FocusScope {
    id: banner

    required property string title
    required property string text
    required property bool isShown
    signal opened
    signal removed

    implicitHeight: Math.max(72, texts.height + 28)
    visible: y > -height
    y: isShown ? 12 : -height - 12
    Keys.onEscapePressed: removed()

    Behavior on y { NumberAnimation { duration: 250; easing.type: Easing.OutCubic } }

    Rectangle {
        anchors { fill: card; topMargin: 3; bottomMargin: -3 }
        radius: card.radius
        color: "#331d3a5f"
    }
    Rectangle {
        id: card
        anchors.fill: parent
        radius: 18
        color: "#ffffff"
        border { width: area.activeFocus ? 3 : 1; color: area.activeFocus ? "#f2b134" : "#d9dfe7" }
    }
    Item {
        id: area
        anchors { left: parent.left; right: remove.left; top: parent.top; bottom: parent.bottom }
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: "알림, " + banner.title + ", " + banner.text
        Accessible.onPressAction: banner.opened()
        Keys.onReturnPressed: banner.opened()
        Keys.onEnterPressed: banner.opened()
        Keys.onSpacePressed: banner.opened()

        Rectangle {
            id: bell
            anchors { left: parent.left; leftMargin: 14; verticalCenter: parent.verticalCenter }
            width: 44
            height: 44
            radius: 12
            color: "#eef1f7"
            Text {
                anchors.centerIn: parent
                text: "🔔"
                font.pixelSize: 24
                Accessible.ignored: true
            }
        }
        Column {
            id: texts
            anchors { left: bell.right; leftMargin: 12; right: parent.right; verticalCenter: parent.verticalCenter }
            spacing: 2
            Text {
                width: parent.width
                text: banner.title
                elide: Text.ElideRight
                font { pixelSize: 16; weight: Font.DemiBold }
                color: "#1d3a5f"
                Accessible.ignored: true
            }
            Text {
                width: parent.width
                text: banner.text
                wrapMode: Text.Wrap
                maximumLineCount: 3
                elide: Text.ElideRight
                font.pixelSize: 14
                color: "#45566b"
                Accessible.ignored: true
            }
        }
        MouseArea {
            anchors.fill: parent
            onClicked: banner.opened()
        }
    }
    Item {
        id: remove
        anchors { right: parent.right; top: parent.top; bottom: parent.bottom; rightMargin: 4 }
        width: 48
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: "알림 지우기"
        Accessible.onPressAction: banner.removed()
        Keys.onReturnPressed: banner.removed()
        Keys.onEnterPressed: banner.removed()
        Keys.onSpacePressed: banner.removed()

        Rectangle {
            anchors.centerIn: parent
            width: 32
            height: 32
            radius: 16
            color: "#eef1f7"
            border { width: remove.activeFocus ? 3 : 0; color: "#f2b134" }
            Text {
                anchors.centerIn: parent
                text: "✕"
                font.pixelSize: 14
                color: "#45566b"
                Accessible.ignored: true
            }
        }
        MouseArea {
            anchors.fill: parent
            onClicked: banner.removed()
        }
    }
}
