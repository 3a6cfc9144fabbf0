import QtQuick
import Orrelo.Kit

/// A centred error message on an opaque background. Its parts exist only while it is shown.
Item {
    id: errorView

    required property ErrorBridge model
    property url background

    visible: !model.isHidden

    Loader {
        anchors.fill: parent
        active: !errorView.model.isHidden
        sourceComponent: Item {
            Background {
                source: errorView.background
            }
            ErrorMessage {
                anchors.centerIn: parent
                width: Math.min(parent.width, Theme.contentWidth) - 2 * Theme.margin
                model: errorView.model
            }
        }
    }
}
