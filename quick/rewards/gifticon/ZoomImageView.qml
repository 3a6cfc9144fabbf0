import QtQuick
import Orrelo.Kit

/// A picture that can be enlarged by pinching, by the wheel, by a double tap and by keys, and moved by dragging
/// and by the arrow keys.
Item {
    id: view

    required property ZoomImageBridge model

    function zoomBy(event) {
        const middle = Qt.point(width / 2, height / 2)
        const actions = {
            [Qt.Key_Plus]: () => model.turnWheel(1, middle.x, middle.y),
            [Qt.Key_Equal]: () => model.turnWheel(1, middle.x, middle.y),
            [Qt.Key_Minus]: () => model.turnWheel(-1, middle.x, middle.y),
            [Qt.Key_Left]: () => model.move(48, 0),
            [Qt.Key_Right]: () => model.move(-48, 0),
            [Qt.Key_Up]: () => model.move(0, 48),
            [Qt.Key_Down]: () => model.move(0, -48)
        }
        event.accepted = event.key in actions
        if (event.accepted) actions[event.key]()
    }

    clip: true
    Accessible.role: Accessible.Graphic
    Accessible.name: model.frame.width > 0 ? model.accessibilityLabel : ""
    Accessible.ignored: model.frame.width === 0
    Accessible.onIncreaseAction: model.turnWheel(1, width / 2, height / 2)
    Accessible.onDecreaseAction: model.turnWheel(-1, width / 2, height / 2)
    onWidthChanged: model.reportSize(width, height)
    onHeightChanged: model.reportSize(width, height)
    Component.onCompleted: model.reportSize(width, height)

    // The item itself grows, so that its texture becomes finer.
    BitmapItem {
        x: view.model.frame.x
        y: view.model.frame.y
        width: view.model.frame.width
        height: view.model.frame.height
        source: view.model.image
    }
    ImageOverlay {
        readonly property rect frame: view.model.frame
        readonly property bool hasFrame: frame.width > 0

        // The visible part of the picture, or the whole view until there is one.
        x: hasFrame ? Math.max(0, frame.x) : 0
        y: hasFrame ? Math.max(0, frame.y) : 0
        width: hasFrame ? Math.min(view.width, frame.x + frame.width) - x : view.width
        height: hasFrame ? Math.min(view.height, frame.y + frame.height) - y : view.height
        model: view.model.image
    }
    PinchHandler {
        target: null
        onActiveChanged: if (active) view.model.beginGesture(centroid.position.x, centroid.position.y)
        onUpdated: if (active) view.model.continueGesture(activeScale, centroid.position.x, centroid.position.y)
    }
    DragHandler {
        target: null
        onActiveChanged: if (active) view.model.beginGesture(centroid.position.x, centroid.position.y)
        onCentroidChanged: if (active) view.model.continueGesture(1, centroid.position.x, centroid.position.y)
    }
    WheelHandler {
        target: null
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => view.model.turnWheel(event.angleDelta.y / 120, event.x, event.y)
    }
    TapHandler {
        onDoubleTapped: eventPoint => view.model.toggle(eventPoint.position.x, eventPoint.position.y)
    }
}
