#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/TooltipView.h"

#include <QColor>

namespace orrelo::quick {

class TooltipBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text NOTIFY stateChanged)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  Q_PROPERTY(int shownCount READ shownCount NOTIFY stateChanged)
  Q_PROPERTY(QColor textColor READ textColor CONSTANT)
  Q_PROPERTY(bool autoDismiss READ autoDismiss CONSTANT)
  Q_PROPERTY(bool dismissOnTouchOutside READ dismissOnTouchOutside CONSTANT)
  Q_PROPERTY(bool hasTailOnTop READ hasTailOnTop CONSTANT)
  Q_PROPERTY(double horizontalBias READ horizontalBias CONSTANT)
  Q_PROPERTY(double tailHeight READ tailHeight CONSTANT)
  Q_PROPERTY(orrelo::quick::AnimationValue fade READ fade CONSTANT)

 public:
  TooltipBridge(const std::shared_ptr<TooltipView>& view, QObject* parent)
      : ViewBridge(view, parent), tooltip_(*view) {
    follow(tooltip_.state);
  }

  const TooltipView& tooltip() const { return tooltip_; }
  QString text() const { return toQt(tooltip_.state.value().text); }
  bool isHidden() const { return tooltip_.state.value().isHidden; }
  int shownCount() const { return tooltip_.state.value().shownCount; }
  QColor textColor() const { return toQt(tooltip_.look.textColor); }
  bool autoDismiss() const { return tooltip_.look.autoDismiss; }
  bool dismissOnTouchOutside() const { return tooltip_.look.dismissOnTouchOutside; }
  bool hasTailOnTop() const { return tooltip_.look.tailPosition == TooltipView::TailPosition::top; }
  double horizontalBias() const { return tooltip_.look.horizontalBias; }
  double tailHeight() const { return TooltipView::tailHeight; }
  AnimationValue fade() const { return AnimationValue(TooltipView::fade); }

  Q_INVOKABLE void hide() { tooltip_.hide(); }
  Q_INVOKABLE void handleTapAction() { tooltip_.handleTapAction(); }

 private:
  TooltipView& tooltip_;
};

}  // namespace orrelo::quick
