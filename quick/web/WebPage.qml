import QtQuick
import QtWebEngine
import Orrelo
import Orrelo.Web

/// A web page in a browser engine. It may run scripts and open windows, and get nothing else of the machine: whatever
/// it asks for besides is refused without a question, so that no page can stand in the user's way.
WebFrame {
    id: frame

    required property WebBridge model

    roomAbove: view.scrollPosition.y
    roomBelow: view.contentsSize.height - view.height - view.scrollPosition.y
    clip: true

    Connections {
        target: frame.model
        function onStateChanged() {
            if (!frame.model.isLoading) view.stop()
        }
    }
    WebEngineView {
        id: view
        anchors.fill: parent
        activeFocusOnTab: true
        backgroundColor: "transparent"
        profile: WebProfile
        url: frame.model.url
        settings {
            javascriptEnabled: true
            javascriptCanOpenWindows: true
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
            if (info.status !== WebEngineView.LoadStartedStatus)
                frame.model.didFinish(info.status !== WebEngineView.LoadFailedStatus)
        }
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
}
