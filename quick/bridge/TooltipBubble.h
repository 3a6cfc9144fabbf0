#pragma once

#include "quick/bridge/TooltipBridge.h"

#include <QPointer>
#include <QQuickPaintedItem>

namespace orrelo::quick {

/// Paints a tooltip's bubble and tail where the core says that they are.
class TooltipBubble : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip MEMBER tooltip_ NOTIFY tooltipChanged REQUIRED)

 public:
  explicit TooltipBubble(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) { setAntialiasing(true); }

  void paint(QPainter* painter) override;

 Q_SIGNALS:
  void tooltipChanged();

 private:
  QPointer<TooltipBridge> tooltip_;
};

}  // namespace orrelo::quick
