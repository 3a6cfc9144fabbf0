#pragma once

#include "modular/scratch/ScratchLotteryView.h"
#include "quick/bridge/ViewBridge.h"

#include <QColor>
#include <QUrl>

namespace orrelo::quick {

class ScratchLotteryBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString result MEMBER result CONSTANT)
  Q_PROPERTY(QColor resultColor MEMBER resultColor CONSTANT)
  Q_PROPERTY(QUrl resultAsset MEMBER resultAsset CONSTANT)
  Q_PROPERTY(QColor backgroundColor MEMBER backgroundColor CONSTANT)
  Q_PROPERTY(bool isMaskHidden READ isMaskHidden NOTIFY stateChanged)
  /// True if the card reacts to a press by a key or by assistive technology.
  Q_PROPERTY(bool isPressable READ isPressable NOTIFY stateChanged)
  Q_PROPERTY(bool keepsTouches MEMBER keepsTouches CONSTANT)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  ScratchLotteryBridge(const std::shared_ptr<ScratchLotteryView>& view, QObject* parent)
      : ViewBridge(view, parent),
        result(toQt(view->content.result)),
        resultColor(toQt(view->content.primaryColor)),
        backgroundColor(toQt(view->content.secondaryColor)),
        keepsTouches(view->keepsTouches()),
        lottery_(*view) {
    follow(lottery_.scratchMaskView->state);
  }

  const QString result;
  const QColor resultColor;
  const QUrl resultAsset = assetFile(ScratchLotteryView::resultAsset);
  const QColor backgroundColor;
  const bool keepsTouches;

  bool isMaskHidden() const { return mask().state.value().isHidden; }
  bool isPressable() const { return lottery_.isPressable(); }
  QString accessibilityLabel() const { return toQt(lottery_.accessibilityLabel()); }
  ScratchMaskView& mask() const { return *lottery_.scratchMaskView; }

  Q_INVOKABLE void touchesBegan(double x, double y) {
    touch([&] { lottery_.touchesBegan({x, y}); });
  }
  Q_INVOKABLE void touchesMoved(double x, double y) {
    touch([&] { lottery_.touchesMoved({x, y}); });
  }
  Q_INVOKABLE void touchesEnded() { lottery_.touchesEnded(); }
  Q_INVOKABLE void press() { lottery_.press(); }

 Q_SIGNALS:
  /// Parts of the mask may have been removed.
  void maskTouched();

 protected:
  double measuredHeight(double /*width*/, const TextMeasure& /*measure*/) const override { return 80.0; }

 private:
  template <class Handler>
  void touch(Handler handler) {
    handler();
    Q_EMIT maskTouched();
  }

  ScratchLotteryView& lottery_;
};

}  // namespace orrelo::quick
