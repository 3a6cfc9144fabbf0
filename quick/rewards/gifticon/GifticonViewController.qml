import QtQuick
import Orrelo.Kit

/// The list of the user's vouchers.
ORLUIViewController {
    id: view

    required property GifticonScreenBridge screen

    page: screen

    PageList {
        id: list
        anchors.fill: parent
        focus: true
        model: view.screen.cells
        delegate: GifticonViewCell {
            x: list.rowX
            width: list.rowWidth
            onPressed: list.choose(index)
        }
        onChosen: row => view.screen.didSelect(row)
    }
    ActivityIndicator {
        anchors.centerIn: parent
        width: 50
        height: width
        isAnimating: view.screen.isLoading
    }
    ErrorView {
        anchors.fill: parent
        model: view.screen.error
    }
}
