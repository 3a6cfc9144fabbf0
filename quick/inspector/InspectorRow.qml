import QtQuick
import Orrelo.Kit
import Orrelo.Inspector

/// A line of the inspector, or the heading of the lines below it.
Item {
    id: row

    required property bool isHeading
    required property string title
    required property string value
    required property string detail
    required property int tone

    /// All of it for assistive technology.
    required property string summary
    readonly property color toneColor: {
        switch (tone) {
        case Inspector.Good: return "#1b7f3b"
        case Inspector.Warning: return "#a15c00"
        case Inspector.Bad: return "#c5221f"
        }
        return Theme.text
    }

    implicitHeight: isHeading ? heading.implicitHeight + 28 : lines.implicitHeight + 20
    Accessible.role: Accessible.StaticText
    Accessible.name: summary

    Rectangle {
        anchors.fill: parent
        visible: !row.isHeading
        color: "white"
    }
    KitText {
        id: heading
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 16; bottomMargin: 8 }
        visible: row.isHeading
        text: row.title
        size: 13
        font.bold: true
        color: Theme.captionText
        Accessible.ignored: true
    }
    Column {
        id: lines
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 16; rightMargin: 16; topMargin: 10 }
        visible: !row.isHeading
        spacing: 4

        Item {
            width: parent.width
            implicitHeight: Math.max(titleText.implicitHeight, valueText.implicitHeight)

            KitText {
                id: titleText
                anchors { left: parent.left; right: valueText.left; rightMargin: row.value.length > 0 ? 16 : 0 }
                text: row.title
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                Accessible.ignored: true
            }
            KitText {
                id: valueText
                anchors.right: parent.right
                width: Math.min(implicitWidth, parent.width * 0.6)
                text: row.value
                horizontalAlignment: Text.AlignRight
                wrapMode: Text.WrapAtWordBoundaryOrAnywhere
                color: row.toneColor
                font.bold: row.tone !== Inspector.Plain
                Accessible.ignored: true
            }
        }
        KitText {
            width: parent.width
            text: row.detail
            size: 13
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            color: row.tone === Inspector.Bad ? row.toneColor : Theme.captionText
            Accessible.ignored: true
        }
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        visible: !row.isHeading
        color: Theme.divider
    }
}
