#pragma once

#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"
#include "viewkit/TooltipView.h"

#include <QColor>

namespace orrelo::quick {

class TooltipBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text NOTIFY stateChanged)
  Q_PROPERTY(bool isHidden READ isHidden NOTIFY stateChanged)
  Q_PROPERTY(int shownCount READ shownCount NOTIFY stateChanged)
  Q_PROPERTY(QColor textColor MEMBER textColor CONSTANT)
  Q_PROPERTY(bool autoDismiss MEMBER autoDismiss CONSTANT)
  Q_PROPERTY(bool dismissOnTouchOutside MEMBER dismissOnTouchOutside CONSTANT)
  Q_PROPERTY(bool hasTailOnTop MEMBER hasTailOnTop CONSTANT)
  Q_PROPERTY(double horizontalBias MEMBER horizontalBias CONSTANT)
  Q_PROPERTY(double tailHeight MEMBER tailHeight CONSTANT)
  Q_PROPERTY(orrelo::quick::AnimationValue fade MEMBER fade CONSTANT)

 public:
  TooltipBridge(const std::shared_ptr<TooltipView>& view, QObject* parent)
      : ViewBridge(view, parent),
        textColor(toQt(view->look.textColor)),
        autoDismiss(view->look.autoDismiss),
        dismissOnTouchOutside(view->look.dismissOnTouchOutside),
        hasTailOnTop(view->look.tailPosition == TooltipView::TailPosition::top),
        horizontalBias(view->look.horizontalBias),
        tooltip_(*view) {
    follow(tooltip_.state);
  }

  const QColor textColor;
  const bool autoDismiss;
  const bool dismissOnTouchOutside;
  const bool hasTailOnTop;
  const double horizontalBias;
  const double tailHeight = TooltipView::tailHeight;
  const AnimationValue fade = AnimationValue(TooltipView::fade);

  const TooltipView& tooltip() const { return tooltip_; }
  QString text() const { return toQt(tooltip_.state.value().text); }
  bool isHidden() const { return tooltip_.state.value().isHidden; }
  int shownCount() const { return tooltip_.state.value().shownCount; }

  Q_INVOKABLE void hide() { tooltip_.hide(); }
  Q_INVOKABLE void handleTapAction() { tooltip_.handleTapAction(); }

 private:
  TooltipView& tooltip_;
};

}  // namespace orrelo::quick
