#pragma once

#include <orrelo/Export.h>
#include <orrelo/OrreloWebKit.h>

#include <functional>
#include <optional>
#include <string>

class QQuickItem;

namespace orrelo::quick {

/// Enables web pages within the kit's pages. Call it once, before the QGuiApplication is created:
///
///     orrelo::quick::initializeWeb();
///     QGuiApplication app(argc, argv);
///
/// If it is not called, or called after the application has been created (a line of ORLExplanations says so),
/// the area of a web page stays empty. All data that pages store, from cookies and cache to the history of
/// their addresses, lies below the kit's own folders and is separate from the host's.
ORRELO_EXPORT void initializeWeb();

/// Reports a message that a page sent and that was not carried out. `error` is absent if an event held a
/// value of an unsupported type. `description` is meant for a log; it never contains the message.
using BridgeFailure =
    std::function<void(const std::optional<OrreloWebkitError>& error, const std::string& description)>;

/// Lets the pages in one of the host's own WebEngineViews call the kit, as described in OrreloWebKit:
///
///     OrreloJavaScriptInterface.postMessage(JSON.stringify({method: 'showHome'}));
///
/// The handler, `window.webkit.messageHandlers.Orrelo`, exists before a page's own scripts run, and
/// `OrreloJavaScriptInterface` from the end of the document on, both in all frames. Whoever controls a page
/// or a frame of the view can change the user: install the bridge only where the host decides what is loaded.
/// Screens are shown in the view's window. GUI thread.
///
/// It takes effect with the next page that is loaded, so call it before the view has a URL. It ends with the
/// view; a second call for the same view replaces `onFailure`. Returns false, with a line of ORLExplanations,
/// if the item is not a WebEngineView or shows the kit's own pages. In QML the same is done by
///
///     import Orrelo.Web
///     WebEngineView {
///         OrreloWebKit.enabled: true
///         OrreloWebKit.onFailed: (error, description) => console.warn(description)
///         url: "https://shop.example/event"
///     }
///
/// where `error` is the name of the case in OrreloWebkitError, or empty for an unsupported value.
///
/// The view's web channel serves as the transport. If it has no objects of the host when the bridge is
/// installed, it is moved to a `webChannelWorld` of its own, which pages cannot reach. A host with objects
/// for its pages registers them before, or sets `webChannelWorld` itself afterwards; otherwise a line of
/// ORLExplanations says what is missing.
ORRELO_EXPORT bool installBridge(QQuickItem* webEngineView, BridgeFailure onFailure = {});

}  // namespace orrelo::quick
