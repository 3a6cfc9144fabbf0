#pragma once

#include "quick/modular/roulette/RouletteBridge.h"

#include <QPointer>
#include <QQuickPaintedItem>

namespace orrelo::quick {

/// Paints, once, the wheel on its rim, or what stands still above it: what of it lies in the item, whose
/// place is one in the drawing. The rim is round: it turns with the wheel, unseen, and costs no picture of
/// its own.
class RoulettePart : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::RouletteBridge* roulette MEMBER roulette_ NOTIFY rouletteChanged REQUIRED)
  Q_PROPERTY(Part part MEMBER part_ NOTIFY partChanged REQUIRED)
  Q_PROPERTY(QString fontFamily MEMBER fontFamily_ NOTIFY fontFamilyChanged)

 public:
  enum Part { Wheel, Cover };
  Q_ENUM(Part)

  explicit RoulettePart(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void rouletteChanged();
  void partChanged();
  void fontFamilyChanged();
  /// It has been painted, at least once.
  void painted();

 private:
  QPointer<RouletteBridge> roulette_;
  Part part_ = Wheel;
  QString fontFamily_;
};

}  // namespace orrelo::quick
