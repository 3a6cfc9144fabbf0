#pragma once

#include "campaign/update/InduceUpdateView.h"
#include "quick/viewkit/ErrorBridge.h"
#include "viewkit/legibility.h"

#include <QColor>

namespace orrelo::quick {

class InduceUpdateBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)
  Q_PROPERTY(QString buttonTitle READ buttonTitle CONSTANT)
  Q_PROPERTY(QColor color READ color CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(double buttonWidth READ buttonWidth CONSTANT)
  Q_PROPERTY(double buttonHeight READ buttonHeight CONSTANT)
  Q_PROPERTY(double borderWidth READ borderWidth CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)

 public:
  InduceUpdateBridge(const std::shared_ptr<InduceUpdateView>& view, QObject* parent)
      : ViewBridge(view, parent), update_(*view), error_(new ErrorBridge(view->errorView, this)) {}

  ErrorBridge* error() const { return error_; }
  QString buttonTitle() const { return toQt(InduceUpdateView::buttonTitle); }
  QColor color() const { return toQt(legibleOnWhite(update_.color)); }
  double spacing() const { return InduceUpdateView::spacing; }
  double buttonWidth() const { return InduceUpdateView::buttonWidth; }
  double buttonHeight() const { return InduceUpdateView::buttonHeight; }
  double borderWidth() const { return InduceUpdateView::buttonBorderWidth; }
  double cornerRadius() const { return InduceUpdateView::buttonCornerRadius; }

  Q_INVOKABLE void routeToUpdateLink() { update_.routeToUpdateLink(); }

 private:
  InduceUpdateView& update_;
  ErrorBridge* const error_;
};

}  // namespace orrelo::quick
