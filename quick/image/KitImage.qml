import QtQuick
import Orrelo.Kit

/// A picture of the kit's or of the service's, whole and in its own proportions in the middle of its place.
/// Not there until it can be seen.
Item {
    id: view

    required property ImageBridge model
    readonly property size bitmapSize: model.size
    readonly property real shrink: !model.fits ? 1 : Math.min(width / bitmapSize.width, height / bitmapSize.height)
    /// The height that a loaded picture has at the view's width, for a view that takes it.
    readonly property real heightForWidth: model.height

    clip: !model.fits
    visible: drawing.status === Image.Ready || bitmapSize.width > 0
    Accessible.ignored: true
    onModelChanged: model?.reportSize(width, height)
    onWidthChanged: model?.reportSize(width, height)
    onHeightChanged: model?.reportSize(width, height)

    Image {
        id: drawing
        anchors.fill: parent
        fillMode: Image.PreserveAspectFit
        source: view.model.asset
        sourceSize: Qt.size(width * Screen.devicePixelRatio, height * Screen.devicePixelRatio)
    }
    BitmapItem {
        anchors.centerIn: parent
        visible: view.bitmapSize.width > 0
        width: visible ? view.bitmapSize.width * view.shrink : 0
        height: visible ? view.bitmapSize.height * view.shrink : 0
        source: view.model
    }
}
