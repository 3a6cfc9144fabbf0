#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/viewkit/WebBridge.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"

#include <QJsonValue>

namespace orrelo::quick {

class ExternalPointExchangeBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The landing page; null if there is nothing to load.
  Q_PROPERTY(orrelo::quick::WebBridge* page MEMBER page CONSTANT)
  /// The QML file that draws the page, with this bridge as its `screen`; empty without a browser engine.
  Q_PROPERTY(QUrl browser MEMBER browser CONSTANT)
  Q_PROPERTY(bool hasBrowser READ hasBrowser CONSTANT)
  Q_PROPERTY(QString handlerName MEMBER handlerName CONSTANT)
  Q_PROPERTY(bool isIndicatorAnimating READ isIndicatorAnimating NOTIFY stateChanged)
  /// Set by the browser.
  Q_PROPERTY(bool canGoBack MEMBER canGoBack_ NOTIFY canGoBackChanged)

 public:
  ExternalPointExchangeBridge(const std::shared_ptr<ExternalPointExchangeViewController>& screen,
                              QObject* parent)
      : ScreenBridge(screen, parent),
        page(screen->webView() ? new WebBridge(screen->webView(), this) : nullptr),
        exchange_(*screen) {
    follow(exchange_.isIndicatorAnimating.changes());
    if (!hasBrowser()) {
      exchange_.didFindNoBrowser("call orrelo::quick::initializeWeb() of orrelo::web before the application");
    }
  }

  WebBridge* const page;
  const QUrl browser = exchangePageDelegate();
  const QString handlerName = toQt(ExternalPointExchangeViewController::handlerName);

  bool hasBrowser() const { return !browser.isEmpty(); }
  bool isIndicatorAnimating() const { return exchange_.isIndicatorAnimating.value(); }

  Q_INVOKABLE void didStartNavigation() { exchange_.didStartNavigation(); }
  Q_INVOKABLE void didReceiveData() { exchange_.didReceiveData(); }
  Q_INVOKABLE void didFinishNavigation() { exchange_.didFinishNavigation(); }
  Q_INVOKABLE void didReceiveScriptMessage(const QJsonValue& body) {
    exchange_.didReceiveScriptMessage(body.isString() ? EventValue(body.toString().toStdString())
                                                      : EventValue());
  }
  Q_INVOKABLE void didSwipeRight() {
    const auto keep = screen();  // leaving may delete this bridge, which owns the screen
    const bool hasHistory = canGoBack_ && page != nullptr && !page->isEmpty();
    if (exchange_.onWebViewSwipeRight(hasHistory)) Q_EMIT goesBack();
  }

 Q_SIGNALS:
  void canGoBackChanged();
  /// The browser has to go back in its history.
  void goesBack();

 private:
  ExternalPointExchangeViewController& exchange_;
  bool canGoBack_ = false;
};

}  // namespace orrelo::quick
