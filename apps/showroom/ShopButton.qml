import QtQuick

Rectangle {
    id: button

    required property string text
    signal pressed

    width: parent.width
    height: 52
    radius: 14
    color: area.containsPress ? "#16304f" : "#1d3a5f"
    border { width: activeFocus ? 3 : 0; color: "#f2b134" }
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: pressed()
    Keys.onReturnPressed: pressed()
    Keys.onEnterPressed: pressed()
    Keys.onSpacePressed: pressed()

    Text {
        anchors.centerIn: parent
        width: parent.width - 24
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        text: button.text
        font { pixelSize: 16; weight: Font.DemiBold }
        color: "#ffffff"
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.pressed()
    }
}
