#pragma once

#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"
#include "viewkit/ErrorViewController.h"

namespace orrelo::quick {

class ErrorScreenBridge final : public PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl background READ background CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)

 public:
  ErrorScreenBridge(const std::shared_ptr<ErrorViewController>& screen, QObject* parent)
      : PageBridge(screen, parent), error_(new ErrorBridge(screen->errorView, this)) {}

  QUrl background() const { return assetFile(ErrorViewController::backgroundAsset); }
  ErrorBridge* error() const { return error_; }

 private:
  ErrorBridge* const error_;
};

}  // namespace orrelo::quick
