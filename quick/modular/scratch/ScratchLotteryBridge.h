#pragma once

#include "modular/scratch/ScratchLotteryView.h"
#include "quick/bridge/ViewBridge.h"

#include <QColor>
#include <QUrl>

namespace orrelo::quick {

class ScratchLotteryBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString result READ result CONSTANT)
  Q_PROPERTY(QColor resultColor READ resultColor CONSTANT)
  Q_PROPERTY(double resultSize READ resultSize CONSTANT)
  Q_PROPERTY(QUrl resultAsset READ resultAsset CONSTANT)
  Q_PROPERTY(QColor groundColor READ groundColor CONSTANT)
  Q_PROPERTY(QColor borderColor READ borderColor CONSTANT)
  Q_PROPERTY(double borderWidth READ borderWidth CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(double height READ height CONSTANT)
  Q_PROPERTY(bool isMaskHidden READ isMaskHidden NOTIFY stateChanged)
  /// True if the card reacts to a press by a key or by assistive technology.
  Q_PROPERTY(bool isPressable READ isPressable NOTIFY stateChanged)
  Q_PROPERTY(bool keepsTouches READ keepsTouches CONSTANT)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  ScratchLotteryBridge(const std::shared_ptr<ScratchLotteryView>& view, QObject* parent)
      : ViewBridge(view, parent), lottery_(*view) {
    follow(lottery_.scratchMaskView->state);
  }

  QString result() const { return toQt(lottery_.content.result); }
  QColor resultColor() const { return toQt(lottery_.resultStyle().color); }
  double resultSize() const { return lottery_.resultStyle().size; }
  QUrl resultAsset() const { return assetFile(ScratchLotteryView::resultAsset); }
  QColor groundColor() const { return toQt(lottery_.content.secondaryColor); }
  QColor borderColor() const { return toQt(ScratchLotteryView::borderColor); }
  double borderWidth() const { return ScratchLotteryView::borderWidth; }
  double cornerRadius() const { return ScratchLotteryView::cornerRadius; }
  double height() const { return ScratchLotteryView::height; }
  bool isMaskHidden() const { return mask().state.value().isHidden; }
  bool isPressable() const { return lottery_.isPressable(); }
  bool keepsTouches() const { return lottery_.keepsTouches(); }
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

 private:
  template <class Handler>
  void touch(Handler handler) {
    handler();
    Q_EMIT maskTouched();
  }

  ScratchLotteryView& lottery_;
};

}  // namespace orrelo::quick
