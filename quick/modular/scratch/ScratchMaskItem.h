#pragma once

#include "quick/image/PaintedItem.h"
#include "quick/modular/scratch/ScratchLotteryBridge.h"

#include <QImage>
#include <QPointer>

namespace orrelo::quick {

/// Paints the mask's image where it has not been scratched off. Only the touched area is updated.
class ScratchMaskItem : public orrelo::quick::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::ScratchLotteryBridge* lottery READ lottery WRITE setLottery NOTIFY lotteryChanged
                 REQUIRED)

 public:
  using PaintedItem::PaintedItem;

  ScratchLotteryBridge* lottery() const { return lottery_; }
  void setLottery(ScratchLotteryBridge* lottery);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void lotteryChanged();

 protected:
  void comeIntoSight() override { takeTouched(); }
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  void takeTouched();

  QPointer<ScratchLotteryBridge> lottery_;
  QImage picture_;
  QImage masked_;
};

}  // namespace orrelo::quick
