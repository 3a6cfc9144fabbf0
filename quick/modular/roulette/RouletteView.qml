import QtQuick
import Orrelo

/// A wheel of fortune: painted where it rests, and turned as the core says.
Item {
    id: view

    required property RouletteBridge model

    implicitHeight: model.side
    Accessible.role: Accessible.Graphic
    Accessible.name: model.accessibilityLabel

    function turn() {
        if (model.isSpinning) {
            if (!spin.running) spin.start()
        } else {
            spin.stop()
            wheel.rotation = 0
            wheel.turn = model.rotation
        }
    }
    Component.onCompleted: turn()

    Connections {
        target: view.model
        function onStateChanged() { view.turn() }
    }
    Item {
        anchors.horizontalCenter: parent.horizontalCenter
        width: view.model.side
        height: width

        RoulettePart {
            anchors.fill: parent
            roulette: view.model
            part: RoulettePart.Base
        }
        RoulettePart {
            id: wheel
            width: parent.width
            height: parent.height
            roulette: view.model
            part: RoulettePart.Wheel
            fontFamily: Theme.fontFamily
            onPainted: view.model.wheelDidAppear()
        }
        RoulettePart {
            anchors.fill: parent
            roulette: view.model
            part: RoulettePart.Cover
            fontFamily: Theme.fontFamily
        }
    }
    NumberAnimation {
        id: spin
        target: wheel
        property: "rotation"
        from: view.model.spinFrom
        to: view.model.spinTo
        duration: view.model.spinDuration
        easing { type: Easing.BezierSpline; bezierCurve: [0.42, 0, 0.58, 1, 1, 1] }
        paused: running && view.model.isPaused
        onFinished: view.model.animationDidStop()
    }
}
