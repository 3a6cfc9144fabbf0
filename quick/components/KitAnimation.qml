import QtQuick

/// Plays a core animation on a property of `target`.
SequentialAnimation {
    id: animation

    required property var motion
    property Item target
    property string property

    PauseAnimation { duration: animation.motion.delay }
    NumberAnimation {
        target: animation.target
        property: animation.property
        from: animation.motion.from
        to: animation.motion.to
        duration: animation.motion.duration
        easing { type: Easing.BezierSpline; bezierCurve: animation.motion.curve }
    }
}
