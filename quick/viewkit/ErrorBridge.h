#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/ErrorView.h"

#include <QUrl>

namespace orrelo::quick {

class ErrorBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text NOTIFY stateChanged)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  Q_PROPERTY(QUrl asset MEMBER asset CONSTANT)

 public:
  ErrorBridge(const std::shared_ptr<ErrorView>& view, QObject* parent)
      : ViewBridge(view, parent), error_(*view) {
    follow(error_.state);
  }

  const QUrl asset = assetFile(ErrorView::asset);

  QString text() const { return toQt(error_.state.value().text); }
  bool isHidden() const { return error_.state.value().isHidden; }

 private:
  const ErrorView& error_;
};

}  // namespace orrelo::quick
