import QtQuick
import Orrelo.Kit

/// A field for a friend's code with the button that verifies it, above the button that completes the entry.
ORLUIViewController {
    id: view

    required property ReferralScreenBridge screen

    page: screen

    PageScroll {
        anchors.fill: parent
        focus: false

        KitText {
            width: parent.width
            size: 20
            maximumScale: 1.6
            font.bold: true
            text: view.screen.message
            Accessible.role: Accessible.Heading
        }
        Flow {
            id: entry

            readonly property bool isNarrow: width - verificationButton.implicitWidth - spacing < placeholder.implicitWidth + 36

            width: parent.width
            spacing: 8

            FocusScope {
                id: codeTextFieldContainerView
                width: entry.isNarrow ? entry.width : entry.width - verificationButton.width - entry.spacing
                height: Math.max(Theme.actionHeight, placeholder.height + 24)
                focus: true
                enabled: view.screen.isCodeEditable

                Rectangle {
                    anchors.fill: parent
                    radius: Theme.cornerRadius
                    color: view.screen.isCodeEditable ? "white" : Theme.divider
                    border { width: 1; color: codeTextField.activeFocus ? Theme.text : Theme.outline }
                }
                KitText {
                    id: placeholder
                    anchors { left: parent.left; right: parent.right; margins: 16; verticalCenter: parent.verticalCenter }
                    size: 16
                    color: Theme.secondaryText
                    visible: codeTextField.length + codeTextField.preeditText.length === 0
                    text: view.screen.placeholder
                    Accessible.ignored: true
                }
                TextInput {
                    id: codeTextField
                    objectName: view.screen.codeIdentifier
                    anchors { left: parent.left; right: parent.right; margins: 16; verticalCenter: parent.verticalCenter }
                    clip: true
                    focus: true
                    activeFocusOnTab: true
                    selectByMouse: true
                    font.family: Theme.fontFamily
                    font.pixelSize: 16 * Theme.textScale
                    color: view.screen.codeColor
                    selectionColor: Theme.focus
                    inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
                    // The screen may have a code already, if this item is not its first.
                    Component.onCompleted: text = view.screen.code
                    onTextChanged: view.screen.setCode(text)
                    onAccepted: view.screen.verify()
                    Accessible.role: Accessible.EditableText
                    Accessible.name: view.screen.placeholder
                }
                TapHandler {
                    onTapped: codeTextField.forceActiveFocus(Qt.MouseFocusReason)
                }
                FocusRing {}
            }
            ActionButton {
                id: verificationButton
                objectName: view.screen.verificationIdentifier
                width: entry.isNarrow ? entry.width : implicitWidth
                implicitWidth: 88 * Theme.textScale + 16
                minimumHeight: entry.isNarrow ? Theme.actionHeight : codeTextFieldContainerView.height
                isEnabled: view.screen.canVerify
                text: view.screen.verificationTitle
                fill: view.screen.verificationFill
                textColor: view.screen.verificationTextColor
                onPressed: view.screen.verify()
            }
        }
        ActionButton {
            width: parent.width
            minimumHeight: Theme.actionHeight
            isEnabled: view.screen.canAuthorize
            text: view.screen.authorizationTitle
            fill: view.screen.authorizationFill
            textColor: view.screen.authorizationTextColor
            onPressed: view.screen.authorize()
            // The button that was pressed is disabled next and would lose the keyboard's focus.
            onIsEnabledChanged: if (isEnabled) forceActiveFocus()
        }
    }
    ActivityIndicator {
        anchors.centerIn: parent
        width: 50
        height: width
        isAnimating: view.screen.isLoading
    }
}
