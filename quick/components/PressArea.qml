import QtQuick
import Orrelo

/// What can be pressed: by touch, mouse, Enter, Space or assistive technology. It shows the keyboard's focus.
FocusScope {
    id: area

    property string name
    property bool isEnabled: true
    property int role: Accessible.Button
    property real focusRadius: Theme.cornerRadius
    property color focusColor: Theme.focus
    /// ReleaseWithinBounds where something beneath would hear the tap too.
    property alias gesturePolicy: tap.gesturePolicy

    signal pressed()

    function press() {
        if (!isEnabled) return
        feedback.restart()
        pressed()
    }

    activeFocusOnTab: isEnabled
    Accessible.role: role
    Accessible.name: name
    Accessible.focusable: isEnabled
    Accessible.ignored: name.length === 0
    Accessible.onPressAction: press()
    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()
    Keys.onSpacePressed: press()

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
    Rectangle {
        anchors { fill: parent; margins: -3 }
        z: 1
        visible: area.activeFocus && Theme.showsFocus
        color: "transparent"
        radius: area.focusRadius + 3
        border { width: 2; color: area.focusColor }
    }
    NumberAnimation {
        id: feedback
        target: area
        property: "opacity"
        from: 0.6
        to: 1
        duration: Theme.pressDuration
    }
}
