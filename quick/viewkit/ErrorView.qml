import QtQuick
import Orrelo.Kit

/// What is wrong, in the middle of its place, opaque over what lies beneath.
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
