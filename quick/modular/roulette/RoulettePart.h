#pragma once

#include "quick/image/PaintedItem.h"
#include "quick/modular/roulette/RouletteBridge.h"

#include <QPointer>

namespace orrelo::quick {

/// Paints, when it comes into sight, either the wheel with its rim or the parts that stand still above it.
/// The item's position and size select the painted section of the drawing. The rim is rotationally symmetric,
/// so it can turn with the wheel and needs no texture of its own.
class RoulettePart : public orrelo::quick::PaintedItem {
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
  /// Emitted with the item's first frame, whether it is in sight or not.
  void appeared();
  /// Emitted after each painting, for measurements.
  void painted();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  QPointer<RouletteBridge> roulette_;
  Part part_ = Wheel;
  QString fontFamily_;
  bool hasAppeared_ = false;
};

}  // namespace orrelo::quick
