import QtQuick
import Orrelo.Kit

/// An image of the kit or of the service, centred and in its own aspect ratio. The item is invisible until there is
/// something to show: the image, or an activity indicator while an animation is being loaded.
Item {
    id: view

    required property ImageBridge model
    /// If positive, the middle of a loaded image covers the view, with rounded corners of this radius.
    property real cornerRadius
    readonly property size bitmapSize: model.size
    readonly property real shrink: !model.fits ? 1 : Math.min(width / bitmapSize.width, height / bitmapSize.height)
    /// True with a loaded image, and while an animation is being loaded.
    readonly property bool hasContent: bitmapSize.width > 0 || model.showsSpinner
    /// The least height while an animation is being loaded, for a view that adapts its height.
    readonly property real loadingHeight: 64
    /// The height of the loaded image at the view's width, for a view that adapts its height.
    readonly property real heightForWidth: model.showsSpinner ? Math.max(model.height, loadingHeight) : model.height

    // An image in its own size is drawn without resampling only at a whole number of device pixels.
    function inDevicePixels(position) {
        return Math.round(position * Screen.devicePixelRatio) / Screen.devicePixelRatio
    }

    clip: !model.fits
    visible: drawing.status === Image.Ready || hasContent
    Accessible.ignored: true
    onModelChanged: model?.reportSize(width, height)
    onWidthChanged: model?.reportSize(width, height)
    onHeightChanged: model?.reportSize(width, height)

    Image {
        id: drawing
        anchors.fill: parent
        fillMode: Image.PreserveAspectFit
        source: view.model.asset
        sourceSize { width: width * Screen.devicePixelRatio; height: height * Screen.devicePixelRatio }
    }
    BitmapItem {
        id: bitmap
        x: view.inDevicePixels((view.width - width) / 2)
        y: view.inDevicePixels((view.height - height) / 2)
        visible: view.bitmapSize.width > 0
        width: !visible ? 0 : view.cornerRadius > 0 ? view.width : view.bitmapSize.width * view.shrink
        height: !visible ? 0 : view.cornerRadius > 0 ? view.height : view.bitmapSize.height * view.shrink
        cornerRadius: view.cornerRadius
        source: view.model
    }
    ImageOverlay {
        anchors.centerIn: parent
        width: bitmap.visible ? Math.min(bitmap.width, view.width) : view.width
        height: bitmap.visible ? Math.min(bitmap.height, view.height) : view.height
        model: view.model
    }
}
