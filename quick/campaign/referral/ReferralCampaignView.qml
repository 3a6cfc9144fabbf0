import QtQuick
import Orrelo.Kit

/// The user's code with its buttons, the way to enter a friend's code, and the friends who have joined.
FocusScope {
    id: view

    required property ReferralCampaignBridge model

    focus: true

    component Heading: KitText {
        width: parent.width
        size: 16
        font.bold: true
        Accessible.role: Accessible.Heading
    }
    /// A text and another one at the end of the line, which keeps its width.
    component Line: Item {
        id: line

        property alias label: startLabel.text
        property alias value: endLabel.text
        property alias valueColor: endLabel.color

        implicitHeight: Math.max(56, Math.max(startLabel.height, endLabel.height) + 28)

        KitText {
            id: startLabel
            anchors { left: parent.left; leftMargin: 16; right: endLabel.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
            Accessible.ignored: true
        }
        KitText {
            id: endLabel
            anchors { right: parent.right; rightMargin: 16; verticalCenter: parent.verticalCenter }
            width: Math.min(implicitWidth, line.width / 2)
            horizontalAlignment: Text.AlignRight
            font.bold: true
            Accessible.ignored: true
        }
    }

    PageScroll {
        anchors.fill: parent

        CampaignInfoView {
            width: parent.width
            model: view.model.info
        }
        Column {
            width: parent.width
            spacing: 12

            Rectangle {
                width: parent.width
                height: codeLines.height + 40
                radius: 12
                color: "white"
                border { width: 1; color: Theme.outline }

                Rectangle {
                    anchors { fill: parent; margins: 1 }
                    radius: 11
                    color: view.model.highlightColor
                    opacity: 0.12
                }
                Column {
                    id: codeLines
                    x: 16
                    y: 20
                    width: parent.width - 32
                    spacing: 6

                    KitText {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        size: 12
                        color: Theme.captionText
                        text: view.model.codeDescription
                    }
                    // A code that is far too long for a person is cut; the button copies all of it.
                    KitText {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        size: 26
                        maximumScale: 1.6
                        maximumLineCount: 4
                        elide: Text.ElideRight
                        font.bold: true
                        color: view.model.codeColor
                        text: view.model.code
                    }
                }
            }
            ActionButton {
                objectName: view.model.copyIdentifier
                width: parent.width
                minimumHeight: Theme.actionHeight
                text: view.model.copyTitle
                fill: view.model.copyFill
                textColor: view.model.copyTextColor
                onPressed: view.model.copyCode()
            }
            PressArea {
                objectName: view.model.shareIdentifier
                width: parent.width
                implicitHeight: Math.max(Theme.actionHeight, shareLabel.height + 24)
                name: view.model.shareTitle
                onPressed: view.model.shareReferralMessage()

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.cornerRadius
                    color: "white"
                    border { width: 1; color: Theme.outline }
                }
                Row {
                    anchors.centerIn: parent
                    spacing: 8

                    Image {
                        id: shareIcon
                        anchors.verticalCenter: parent.verticalCenter
                        width: 20
                        height: 20
                        source: view.model.shareAsset
                        sourceSize { width: 80; height: 80 }
                    }
                    KitText {
                        id: shareLabel
                        width: Math.min(implicitWidth, view.width - 2 * Theme.margin - 60)
                        size: 16
                        font.bold: true
                        text: view.model.shareTitle
                        Accessible.ignored: true
                    }
                }
            }
        }
        Column {
            width: parent.width
            spacing: 12

            Heading { text: view.model.navigateHeading }
            PressArea {
                id: navigateView
                objectName: view.model.navigateIdentifier
                width: parent.width
                implicitHeight: navigateLine.implicitHeight
                name: view.model.navigateLabel + " " + view.model.navigateLink
                onPressed: view.model.showReferralViewController()

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.cornerRadius
                    color: "white"
                    border { width: 1; color: Theme.outline }
                }
                Line {
                    id: navigateLine
                    anchors.fill: parent
                    label: view.model.navigateLabel
                    value: view.model.navigateLink
                    valueColor: view.model.linkColor
                }
            }
        }
        Column {
            width: parent.width
            spacing: 12

            Heading { text: view.model.joinedHeading }
            Rectangle {
                width: parent.width
                height: joinedLine.implicitHeight
                radius: 8
                color: Qt.rgba(0.98, 0.98, 0.98, 1)
                Accessible.role: Accessible.StaticText
                Accessible.name: joinedLine.label + " " + joinedLine.value

                Line {
                    id: joinedLine
                    anchors.fill: parent
                    label: view.model.joinedLabel
                    value: view.model.joinedCount
                }
            }
        }
        CampaignNoticeView {
            width: parent.width
            model: view.model.notice
        }
    }
    ToastLayer {
        anchors.fill: parent
        model: view.model.toasts
    }
    // Asked at each frame, after the layout, until the box has been seen.
    Connections {
        target: view.Window.window
        enabled: view.model.awaitsNavigateView
        function onAfterAnimating() {
            const place = navigateView.mapToItem(view, 0, 0)
            view.model.didLayOut(Qt.rect(place.x, place.y, navigateView.width, navigateView.height),
                                 Qt.rect(0, 0, view.width, view.height))
        }
    }
}
