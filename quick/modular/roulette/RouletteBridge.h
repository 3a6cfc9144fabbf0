#pragma once

#include "modular/roulette/RouletteView.h"
#include "quick/bridge/AnimationValue.h"
#include "quick/bridge/ViewBridge.h"

#include <QRectF>

namespace orrelo::quick {

/// The bounding square of a circle.
inline QRectF squareAround(const Position& center, double radius) {
  return {center.x - radius, center.y - radius, 2 * radius, 2 * radius};
}

class RouletteBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(double side MEMBER side CONSTANT)
  /// The bounding rectangle of the parts that stand still above the wheel.
  Q_PROPERTY(QRectF cover MEMBER cover CONSTANT)
  /// The rotation of the wheel at rest, in degrees as all angles here.
  Q_PROPERTY(double rotation READ rotation NOTIFY stateChanged)
  Q_PROPERTY(bool isSpinning READ isSpinning NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::AnimationValue spin READ spin NOTIFY stateChanged)
  Q_PROPERTY(bool isPaused READ isPaused NOTIFY stateChanged)
  /// The prize that was won; empty until then.
  Q_PROPERTY(QString outcome READ outcome NOTIFY stateChanged)
  Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel NOTIFY stateChanged)

 public:
  RouletteBridge(const std::shared_ptr<RouletteView>& view, QObject* parent);

  const double side = RouletteView::side;
  const RouletteDrawing drawing;
  const QRectF cover;

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
};

}  // namespace orrelo::quick
