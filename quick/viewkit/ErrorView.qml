import QtQuick
import Orrelo.Kit

/// A centred error message on an opaque background.
Item {
    id: errorView

    required property ErrorBridge model
    property url background

    visible: !model.isHidden

    Background {
        source: errorView.background
    }
    ErrorMessage {
        anchors.centerIn: parent
        width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
        model: errorView.model
    }
}
