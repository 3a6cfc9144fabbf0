import QtQuick
import QtQuick.Window
import QtWebEngine
import Orrelo.Kit
import Orrelo.Web

/// A web page in a browser engine. It may run scripts and open windows, and get nothing else of the machine: whatever
/// it asks for besides is refused without a question, so that no page can stand in the user's way.
WebFrame {
    id: frame

    required property WebBridge model

    // The engine tells of pixels.
    roomAbove: view.scrollPosition.y / Screen.devicePixelRatio
    roomBelow: (view.contentsSize.height - view.scrollPosition.y) / Screen.devicePixelRatio - view.height
    clip: true
    Accessible.role: Accessible.WebDocument
    Accessible.name: view.title
    onAsked: view.runJavaScript("0", () => didAnswer())

    Connections {
        target: frame.model
        function onStateChanged() {
            if (!frame.model.isLoading) view.stop()
        }
    }
    WebEngineView {
        id: view
        width: parent.width
        // What a page higher than this costs is the host's memory; the rest of it scrolls in here.
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
        // The engine begins at 10, before anything has come.
        onLoadProgressChanged: if (loadProgress > 10) frame.model.didReceive()
        onLoadingChanged: info => {
            // One that is stopped goes on elsewhere, or waits for its minute.
            if (info.status === WebEngineView.LoadSucceededStatus) frame.model.didFinish(true)
            else if (info.status === WebEngineView.LoadFailedStatus) frame.model.didFinish(false)
        }
        // Kept off the host's own log.
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
