#pragma once

#include <QQuickWebEngineProfile>
#include <QWebEngineCertificateError>
#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// What the kit's web pages share: cookies and cache in folders of their own, and who is trusted.
class WebProfile : public QQuickWebEngineProfile {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  explicit WebProfile(QObject* parent = nullptr);

  /// Whether a server that the engine does not trust is the development environment's.
  Q_INVOKABLE static bool trusts(const QWebEngineCertificateError& error);
};

}  // namespace orrelo::quick
