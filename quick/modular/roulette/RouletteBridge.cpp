#include "quick/modular/roulette/RouletteBridge.h"

#include <QtMath>

namespace orrelo::quick {

RouletteBridge::RouletteBridge(const std::shared_ptr<RouletteView>& view, QObject* parent)
    : ViewBridge(view, parent), roulette_(*view), drawing_(view->drawing()) {
  follow(roulette_.state);
}

QRectF RouletteBridge::cover() const {
  const auto of = [](const RouletteDrawing::Disc& disc) { return squareAround(disc.center, disc.radius); };
  auto cover = of(drawing_.centerDot);
  for (const auto& corner : drawing_.pin.corners) cover |= squareAround(corner.center, corner.radius);
  if (drawing_.veil) cover |= of(drawing_.veil->disc);
  return cover.toAlignedRect();
}

double RouletteBridge::rotation() const {
  return qRadiansToDegrees(roulette_.state.value().rotation);
}

AnimationValue RouletteBridge::spin() const {
  return AnimationValue(roulette_.state.value().spin.value_or(Animation()), qDegreesToRadians(1.0));
}

}  // namespace orrelo::quick

#include "moc_RouletteBridge.cpp"
