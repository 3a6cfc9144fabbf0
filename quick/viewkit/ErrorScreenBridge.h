#pragma once

#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"
#include "viewkit/ErrorViewController.h"

namespace orrelo::quick {

class ErrorScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl background MEMBER background CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  ErrorScreenBridge(const std::shared_ptr<ErrorViewController>& screen, QObject* parent)
      : PageBridge(screen, parent), error(new ErrorBridge(screen->errorView, this)) {}

  const QUrl background = assetFile(ErrorViewController::backgroundAsset);
  ErrorBridge* const error;
};

}  // namespace orrelo::quick
