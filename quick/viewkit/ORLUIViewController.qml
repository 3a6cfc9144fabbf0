import QtQuick
import Orrelo.Kit

/// A full-page screen: a background, the kit's own bar if the page has one, and the content below it.
FocusScope {
    id: base

    property PageBridge page
    property alias background: backgroundImage.source
    default property alias content: area.data

    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: page?.title ?? ""

    Background {
        id: backgroundImage
    }
    ModalTopBar {
        id: bar
        width: parent.width
        height: base.page?.barHeight ?? 0
        title: base.page?.barTitle ?? ""
        onBack: base.page.close()
    }
    Item {
        id: area
        anchors { top: bar.bottom; bottom: parent.bottom; left: parent.left; right: parent.right }
    }
    Loader {
        anchors.fill: parent
        active: base.page !== null
        sourceComponent: ToastLayer { model: base.page.toasts }
    }
}
