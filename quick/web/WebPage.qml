import QtQuick
import QtQuick.Window
import QtWebEngine
import Orrelo.Kit
import Orrelo.Web

/// A web page in a browser engine. It may run scripts and open windows. All other requests, such as
/// permissions and dialogs, are refused without asking the user, so that a page cannot get in the user's way.
WebFrame {
    id: frame

    required property WebBridge model
    readonly property alias browser: view

    // The engine reports pixels.
    roomAbove: view.scrollPosition.y / Screen.devicePixelRatio
    roomBelow: (view.contentsSize.height - view.scrollPosition.y) / Screen.devicePixelRatio - view.height
    clip: true
    Accessible.role: Accessible.WebDocument
    Accessible.name: view.title
    onAsked: view.runJavaScript("0", () => didAnswer())

    Connections {
        target: frame.model
        function onStateChanged() {
            // A load that has succeeded is not stopped: the user may already have followed a link.
            if (frame.model.hasTimedOut) view.stop()
        }
    }
    WebEngineView {
        id: view
        width: parent.width
        // The painted height is limited because it takes memory in the host's process. The rest of a higher
        // page is scrolled within this view.
        height: Math.min(parent.height, 8192)
        activeFocusOnTab: true
        backgroundColor: "transparent"
        profile: WebProfile
        url: frame.model.url
        settings {
            javascriptEnabled: true
            javascriptCanOpenWindows: true
            playbackRequiresUserGesture: true
            webRTCPublicInterfacesOnly: true
            allowWindowActivationFromJavaScript: false
            focusOnNavigationEnabled: false
            fullScreenSupportEnabled: false
            errorPageEnabled: false
            pluginsEnabled: false
            pdfViewerEnabled: false
            navigateOnDropEnabled: false
            localContentCanAccessFileUrls: false
            localContentCanAccessRemoteUrls: false
            unknownUrlSchemePolicy: WebEngineSettings.DisallowUnknownUrlSchemes
        }

        Component.onCompleted: frame.model.didStart()
        // The engine reports 10 before it has received anything.
        onLoadProgressChanged: if (loadProgress > 10) frame.model.didReceive()
        onLoadingChanged: info => {
            // A stopped load is not reported: either another navigation follows or the timeout ends it.
            if (info.status === WebEngineView.LoadSucceededStatus) frame.model.didFinish(true)
            else if (info.status === WebEngineView.LoadFailedStatus) frame.model.didFinish(false)
        }
        // Keeps the page's messages out of the host's log.
        onJavaScriptConsoleMessage: {}
        onRenderProcessTerminated: frame.model.processDidEnd()
        onCertificateError: error => {
            if (WebProfile.trusts(error)) error.acceptCertificate()
            else error.rejectCertificate()
        }
        onNavigationRequested: request => {
            if (!frame.model.mayGoTo(request.url, !request.isMainFrame)) request.reject()
        }
        onNewWindowRequested: request => frame.model.openWindow(request.requestedUrl, request.userInitiated)

        onJavaScriptDialogRequested: request => {
            request.accepted = true
            request.dialogReject()
        }
        onAuthenticationDialogRequested: request => {
            request.accepted = true
            request.dialogReject()
        }
        onColorDialogRequested: request => {
            request.accepted = true
            request.dialogReject()
        }
        onFileDialogRequested: request => {
            request.accepted = true
            request.dialogReject()
        }
        onContextMenuRequested: request => request.accepted = true
        onTooltipRequested: request => request.accepted = true
        onTouchSelectionMenuRequested: request => request.accepted = true
        onFeaturePermissionRequested: (origin, feature) => grantFeaturePermission(origin, feature, false)
        onFileSystemAccessRequested: request => request.reject()
        onFullScreenRequested: request => request.reject()
        onQuotaRequested: request => request.reject()
        onRegisterProtocolHandlerRequested: request => request.reject()
        onSelectClientCertificate: selection => selection.selectNone()
    }
    FocusRing {
        anchors.margins: 0
        around: -3
        visible: view.activeFocus && Theme.showsFocus
    }
}
