import QtQuick
import Orrelo.Kit

/// A wheel of fortune, which is painted once it is in sight and then rotated as the core requests.
Item {
    id: view

    required property RouletteBridge model

    implicitWidth: model.side
    implicitHeight: model.side
    Accessible.role: Accessible.Graphic
    Accessible.name: model.accessibilityLabel

    function turn() {
        if (model.isSpinning) {
            if (!spin.running) spin.start()
        } else {
            spin.stop()
            wheel.rotation = model.rotation
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
            id: wheel
            width: parent.width
            height: parent.height
            roulette: view.model
            part: RoulettePart.Wheel
            // The software renderer rotates a layer smoothly, but not a painted item.
            layer { enabled: true; smooth: true }
            fontFamily: Theme.fontFamily
            // A wheel that must spin does so below the fold, too.
            onAppeared: view.model.wheelDidAppear()
        }
        RoulettePart {
            // Kept as small as possible, because it is blended again in every frame of the rotation.
            x: view.model.cover.x
            y: view.model.cover.y
            width: view.model.cover.width
            height: view.model.cover.height
            roulette: view.model
            part: RoulettePart.Cover
            fontFamily: Theme.fontFamily
        }
    }
    Item {
        anchors.fill: parent
        Accessible.role: Accessible.AlertMessage
        Accessible.name: view.model.outcome
        Accessible.ignored: view.model.outcome.length === 0
    }
    KitAnimation {
        id: spin
        motion: view.model.spin
        target: wheel
        property: "rotation"
        paused: running && view.model.isPaused
        onFinished: view.model.animationDidStop()
    }
}
