#pragma once

#include "quick/web/ScriptMessageHandler.h"

#include <orrelo/quick/OrreloWeb.h>

#include <QQmlEngine>
#include <QQuickItem>
#include <memory>

namespace orrelo::quick {

/// Connects the pages in one WebEngineView of the host with the façade. The view owns it. In QML it is the
/// attached object `OrreloWebKit` of the view.
class OrreloWebKitBridge final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(OrreloWebKit)
  QML_UNCREATABLE("OrreloWebKit is attached to a WebEngineView")
  QML_ATTACHED(OrreloWebKitBridge)
  Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)

 public:
  /// The bridge of this view, which is made at the first call.
  static OrreloWebKitBridge& of(QObject& view);
  static OrreloWebKitBridge* qmlAttachedProperties(QObject* object) { return &of(*object); }

  bool isEnabled() const { return handler_ != nullptr; }
  /// Stays false, with a line in the log, for an item that may not have the handler.
  void setEnabled(bool enabled);

  BridgeFailure onFailure;

 Q_SIGNALS:
  void enabledChanged();
  /// A page's message was not carried out. `error` is the name of the case, or empty for an unsupported
  /// value.
  void failed(const QString& error, const QString& description);

 private:
  explicit OrreloWebKitBridge(QObject& view) : QObject(&view) {}

  void handle(const QJsonValue& body);
  void fail(const std::optional<OrreloWebkitError>& error, const std::string& description);

  std::unique_ptr<ScriptMessageHandler> handler_;
};

}  // namespace orrelo::quick
