import QtQuick
import Orrelo.Kit
import Orrelo.Inspector

/// Shows what the kit knows about itself, over everything in a window.
FocusScope {
    id: screen

    signal closed()

    anchors.fill: parent
    // Above everything that the host and the kit draw.
    z: 1e9
    focus: true
    Keys.onEscapePressed: closed()
    Keys.onBackPressed: closed()
    Accessible.role: Accessible.Dialog
    Accessible.name: "OrreloSDK inspector"

    InspectorBridge { id: inspector }

    Rectangle {
        anchors.fill: parent
        color: "#f3f4f6"
    }
    Rectangle {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: bar.height + tabs.height
        color: "white"
    }
    Item {
        id: bar
        anchors { left: list.left; right: list.right; top: header.top }
        height: 52

        KitText {
            anchors { left: parent.left; leftMargin: 16; right: copy.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
            text: "Inspector"
            size: 17
            maximumScale: 1.2
            font.bold: true
            wrapMode: Text.NoWrap
        }
        PressArea {
            id: copy

            property bool isCopied: false

            anchors { right: closeButton.left; verticalCenter: parent.verticalCenter }
            name: isCopied ? "Copied" : "Copy JSON"
            width: copyLabel.implicitWidth + 24
            height: Theme.touchSize
            onPressed: {
                inspector.copyJson()
                isCopied = true
                copiedEnd.restart()
            }

            KitText {
                id: copyLabel
                anchors.centerIn: parent
                text: copy.name
                maximumScale: 1.2
                font.bold: true
                color: Theme.focus
                Accessible.ignored: true
            }
            Timer {
                id: copiedEnd
                interval: 2000
                onTriggered: copy.isCopied = false
            }
        }
        IconButton {
            id: closeButton
            anchors { right: parent.right; rightMargin: 4; verticalCenter: parent.verticalCenter }
            name: "Close the inspector"
            source: "qrc:/qt-project.org/imports/Orrelo/Kit/assets/orl_ic_close.svg"
            onPressed: screen.closed()
        }
    }
    Row {
        id: tabs
        anchors { left: list.left; leftMargin: 4; top: bar.bottom }
        height: Theme.touchSize

        Repeater {
            model: [
                { name: "Overview", section: Inspector.Overview },
                { name: "Events", section: Inspector.Events },
                { name: "Requests", section: Inspector.Requests },
                { name: "Pages", section: Inspector.Pages }
            ]

            InspectorTab {
                required property var modelData

                name: modelData.name
                isSelected: inspector.section === modelData.section
                onPressed: {
                    inspector.section = modelData.section
                    list.positionViewAtBeginning()
                }
            }
        }
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; top: header.bottom }
        height: 1
        color: Theme.outline
    }
    ListView {
        id: list
        anchors { top: header.bottom; topMargin: 1; bottom: parent.bottom; horizontalCenter: parent.horizontalCenter }
        width: Math.min(parent.width, 720)
        model: inspector.rows
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        Keys.onDownPressed: flick(0, -900)
        Keys.onUpPressed: flick(0, 900)
        footer: Item { width: 1; height: 24 }
        delegate: InspectorRow { width: list.width }

        ScrollIndicator { scroll: list }
    }
    KitText {
        anchors.centerIn: list
        width: list.width - 48
        horizontalAlignment: Text.AlignHCenter
        visible: list.count === 0
        text: inspector.section === Inspector.Pages ? "No page of a campaign has come yet."
                                                    : "No request has ended yet."
        color: Theme.captionText
    }
}
