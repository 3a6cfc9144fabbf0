#pragma once

#include "quick/bridge/ViewBridge.h"
#include "quick/viewkit/WebPageDelegate.h"
#include "viewkit/WebView.h"

#include <QUrl>

namespace orrelo::quick {

class WebBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl url MEMBER url CONSTANT)
  /// The width that the block requests; 0 if the stack determines it.
  Q_PROPERTY(double ownWidth MEMBER ownWidth CONSTANT)
  Q_PROPERTY(double height MEMBER height CONSTANT)
  /// The QML file that draws a page, with this bridge as its `model`; empty without a browser engine.
  Q_PROPERTY(QUrl browser READ browser CONSTANT)
  Q_PROPERTY(bool hasBrowser READ hasBrowser CONSTANT)
  Q_PROPERTY(bool hasTimedOut READ hasTimedOut NOTIFY stateChanged)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY stateChanged)

 public:
  WebBridge(const std::shared_ptr<WebView>& view, QObject* parent)
      : ViewBridge(view, parent),
        url(toQt(view->url.text())),
        ownWidth(view->width.value_or(0.0)),
        height(view->height),
        web_(*view) {
    follow(web_.state);
  }

  const QUrl url;
  const double ownWidth;
  const double height;

  QUrl browser() const { return webPageDelegate(); }
  bool hasBrowser() const { return !browser().isEmpty(); }
  bool hasTimedOut() const { return web_.hasTimedOut(); }
  bool isEmpty() const { return web_.state.value() == WebView::State::empty; }

  Q_INVOKABLE void didStart() { web_.didStart(); }
  Q_INVOKABLE void didReceive() { web_.didReceive(); }
  Q_INVOKABLE void didFinish(bool succeeded) { web_.didFinish(succeeded); }
  Q_INVOKABLE void processDidEnd() { web_.processDidEnd(); }
  Q_INVOKABLE bool mayGoTo(const QUrl& target, bool isFrame) const {
    return WebView::mayGoTo(target.scheme().toStdString(), isFrame);
  }
  Q_INVOKABLE void openWindow(const QUrl& target, bool isAskedFor) {
    web_.openWindow(target.toEncoded().toStdString(), isAskedFor);
  }

 private:
  WebView& web_;
};

}  // namespace orrelo::quick
