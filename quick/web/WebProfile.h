#pragma once

#include <QQmlEngine>
#include <QQuickWebEngineProfile>
#include <QWebEngineCertificateError>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// What the kit's web pages share, in all of a host's windows: cookies and cache in folders of their own, and
/// who is trusted.
class WebProfile : public QQuickWebEngineProfile {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// The one of the process.
  static WebProfile* create(QQmlEngine* engine, QJSEngine* scripts);

  /// Whether a server that the engine does not trust is the development environment's.
  Q_INVOKABLE static bool trusts(const QWebEngineCertificateError& error);

 private:
  WebProfile();
};

}  // namespace orrelo::quick
