#include "quick/modular/roulette/RouletteBridge.h"

#include <QtMath>

namespace orrelo::quick {
namespace {

QRectF coverOf(const RouletteDrawing& drawing) {
  const auto of = [](const RouletteDrawing::Disc& disc) { return squareAround(disc.center, disc.radius); };
  auto cover = of(drawing.centerDot);
  for (const auto& corner : drawing.pin.corners) cover |= squareAround(corner.center, corner.radius);
  if (drawing.veil) cover |= of(drawing.veil->disc);
  return cover.toAlignedRect();
}

}  // namespace

RouletteBridge::RouletteBridge(const std::shared_ptr<RouletteView>& view, QObject* parent)
    : ViewBridge(view, parent), drawing(view->drawing()), cover(coverOf(drawing)), roulette_(*view) {
  follow(roulette_.state);
}

double RouletteBridge::rotation() const {
  return qRadiansToDegrees(roulette_.state.value().rotation);
}

AnimationValue RouletteBridge::spin() const {
  return AnimationValue(roulette_.state.value().spin.value_or(Animation()), qDegreesToRadians(1.0));
}

}  // namespace orrelo::quick

#include "moc_RouletteBridge.cpp"
