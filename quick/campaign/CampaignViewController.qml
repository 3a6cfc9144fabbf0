import QtQuick
import Orrelo.Kit

ORLUIViewController {
    id: view

    required property CampaignScreenBridge screen

    page: screen
    background: screen.background

    FocusScope {
        anchors.fill: parent
        focus: true
        visible: view.screen.error.isHidden

        Loader {
            id: loader
            anchors.fill: parent
            focus: true

            function show(content) {
                if (content && content.delegate.toString().length > 0) setSource(content.delegate, { model: content })
                else source = ""
            }
            onWidthChanged: report()
            onHeightChanged: report()
            onLoaded: report()
            function report() {
                if (item && width > 0) view.screen.content?.reportSize(width, height)
            }
            Component.onCompleted: show(view.screen.content)
        }
        Connections {
            target: view.screen
            function onContentChanged() { loader.show(view.screen.content) }
        }
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
        background: view.screen.background
    }
}
