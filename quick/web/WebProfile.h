#pragma once

#include <QQmlEngine>
#include <QQuickWebEngineProfile>
#include <QWebEngineCertificateError>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// The profile shared by the kit's web pages in all windows: cookies and cache in the kit's own folders, and
/// the trusted certificates.
class WebProfile : public QQuickWebEngineProfile {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  /// Returns the process's only profile.
  static WebProfile* create(QQmlEngine* engine, QJSEngine* scripts);

  /// Returns true if the untrusted server is the development environment's and its certificate is vouched for
  /// by the configured file.
  Q_INVOKABLE static bool trusts(const QWebEngineCertificateError& error);

 private:
  WebProfile();
};

}  // namespace orrelo::quick
