#pragma once

#include "modular/roulette/RouletteView.h"
#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"

#include <QPointer>
#include <QQuickPaintedItem>
#include <QRectF>

namespace orrelo::quick {

class RouletteBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(double side READ side CONSTANT)
  /// Where something stands still above the wheel.
  Q_PROPERTY(QRectF cover READ cover CONSTANT)
  /// In degrees, as all angles here: of the wheel at rest.
  Q_PROPERTY(double rotation READ rotation NOTIFY stateChanged)
  Q_PROPERTY(bool isSpinning READ isSpinning NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::AnimationValue spin READ spin NOTIFY stateChanged)
  Q_PROPERTY(bool isPaused READ isPaused NOTIFY stateChanged)
  /// The prize that was won; empty before.
  Q_PROPERTY(QString outcome READ outcome NOTIFY stateChanged)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  RouletteBridge(const std::shared_ptr<RouletteView>& view, QObject* parent);

  const RouletteDrawing& drawing() const { return drawing_; }
  double side() const { return RouletteView::side; }
  QRectF cover() const;
  double rotation() const;
  bool isSpinning() const { return roulette_.state.value().spin.has_value(); }
  AnimationValue spin() const;
  bool isPaused() const { return roulette_.state.value().isPaused; }
  QString outcome() const { return toQt(roulette_.state.value().outcome); }
  QString accessibilityLabel() const { return toQt(roulette_.accessibilityLabel()); }

  Q_INVOKABLE void wheelDidAppear() { roulette_.wheelDidAppear(); }
  Q_INVOKABLE void animationDidStop() { roulette_.animationDidStop(true); }

 private:
  RouletteView& roulette_;
  const RouletteDrawing drawing_;
};

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
