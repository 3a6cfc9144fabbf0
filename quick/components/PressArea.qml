import QtQuick
import Orrelo.Kit

/// An area that can be pressed by touch, mouse, Enter, Space or assistive technology. It shows the keyboard
/// focus.
FocusScope {
    id: area

    property string name
    property bool isEnabled: true
    property int role: Accessible.Button
    property Item focusFrame: area
    property real focusRadius: Theme.cornerRadius
    property color focusColor: Theme.focus
    /// Set it to ReleaseWithinBounds if an item beneath would also receive the tap.
    property alias gesturePolicy: tap.gesturePolicy

    signal pressed()

    function press() {
        if (!isEnabled) return
        feedback.restart()
        pressed()
    }

    /// Ignores auto-repeat, so that a key that is held presses once.
    function pressBy(event) {
        if (!event.isAutoRepeat) press()
    }

    activeFocusOnTab: isEnabled
    // Plain text must not be presented as a disabled button.
    enabled: isEnabled || role !== Accessible.Button
    Accessible.role: role
    Accessible.name: name
    Accessible.focusable: isEnabled
    Accessible.ignored: name.length === 0
    Accessible.onPressAction: press()
    Keys.onReturnPressed: event => pressBy(event)
    Keys.onEnterPressed: event => pressBy(event)
    Keys.onSpacePressed: event => pressBy(event)

    TapHandler {
        id: tap
        enabled: area.isEnabled
        onTapped: {
            area.forceActiveFocus(Qt.MouseFocusReason)
            area.press()
        }
    }
    HoverHandler {
        enabled: area.isEnabled
        cursorShape: Qt.PointingHandCursor
    }
    FocusRing {
        anchors.fill: area.focusFrame
        around: area.focusRadius
        border.color: area.focusColor
    }
    NumberAnimation {
        id: feedback
        target: area
        property: "opacity"
        from: 0.6
        to: 1
        duration: Theme.pressDuration
        easing.type: Easing.InOutQuad
    }
}
