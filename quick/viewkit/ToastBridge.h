#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/ToastView.h"

#include <QColor>

namespace orrelo::quick {

class ToastBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString message READ message CONSTANT)
  Q_PROPERTY(QColor color READ color CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(double inset READ inset CONSTANT)
  Q_PROPERTY(double maximumWidthShare READ maximumWidthShare CONSTANT)
  Q_PROPERTY(orrelo::quick::AnimationValue fade READ fade CONSTANT)

 public:
  ToastBridge(const std::shared_ptr<ToastView>& view, QObject* parent)
      : ViewBridge(view, parent), toast_(*view) {}

  const ToastView& toast() const { return toast_; }
  QString message() const { return toQt(toast_.message); }
  QColor color() const { return toQt(toast_.backgroundColor); }
  double cornerRadius() const { return ToastView::cornerRadius; }
  double inset() const { return ToastView::inset; }
  double maximumWidthShare() const { return ToastView::maximumWidthShare; }
  AnimationValue fade() const { return AnimationValue(ToastView::fade); }

 private:
  const ToastView& toast_;
};

}  // namespace orrelo::quick
