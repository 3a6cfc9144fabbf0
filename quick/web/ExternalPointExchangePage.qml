import QtQuick
import QtWebEngine
import Orrelo.Kit
import Orrelo.Web

/// The page of the exchange, which may send messages to the screen.
WebPage {
    id: page

    required property ExternalPointExchangeBridge screen

    model: screen.page
    browser.focus: true

    Binding {
        target: page.screen
        property: "canGoBack"
        value: page.browser.canGoBack
    }
    Connections {
        target: page.screen
        function onGoesBack() { page.browser.goBack() }
    }
    Connections {
        target: page.browser
        function onLoadingChanged(info) {
            if (info.status === WebEngineView.LoadStartedStatus) page.screen.didStartNavigation()
            else if (info.status === WebEngineView.LoadSucceededStatus) page.screen.didFinishNavigation()
        }
        function onLoadProgressChanged() {
            if (page.browser.loadProgress > 10) page.screen.didReceiveData()
        }
    }
    ScriptMessageHandler {
        name: page.screen.handlerName
        view: page.browser
        onReceived: body => page.screen.didReceiveScriptMessage(body)
    }
}
