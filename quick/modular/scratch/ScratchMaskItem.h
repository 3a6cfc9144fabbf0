#pragma once

#include "quick/modular/scratch/ScratchLotteryBridge.h"

#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>

namespace orrelo::quick {

/// Paints the mask's image where it has not been scratched off. Only the touched area is updated.
class ScratchMaskItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ScratchLotteryBridge* lottery READ lottery WRITE setLottery NOTIFY lotteryChanged
                 REQUIRED)

 public:
  using QQuickPaintedItem::QQuickPaintedItem;

  ScratchLotteryBridge* lottery() const { return lottery_; }
  void setLottery(ScratchLotteryBridge* lottery);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void lotteryChanged();

 protected:
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  void takeTouched();

  QPointer<ScratchLotteryBridge> lottery_;
  QImage picture_;
  QImage masked_;
};

}  // namespace orrelo::quick
