#pragma once

#include "quick/image/PaintedItem.h"
#include "quick/viewkit/TooltipBridge.h"

#include <QPointer>

namespace orrelo::quick {

/// Paints a tooltip's bubble and tail, whose geometry the core provides, and their shadow. It is larger than
/// the tooltip by `margin` on each side to contain the shadow.
class TooltipBubble : public orrelo::quick::PaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip MEMBER tooltip_ NOTIFY tooltipChanged REQUIRED)

 public:
  explicit TooltipBubble(QQuickItem* parent = nullptr) : PaintedItem(parent) { setAntialiasing(true); }

  static double margin();
  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void tooltipChanged();

 private:
  QPointer<TooltipBridge> tooltip_;
};

}  // namespace orrelo::quick
