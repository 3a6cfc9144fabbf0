#include "quick/bridge/AnimationValue.h"

#include "ui/Animation.h"

namespace orrelo::quick {
namespace {

// The control points of ease-out and ease-in-out as defined by CSS Easing Functions.
QList<qreal> bezier(Animation::Curve curve) {
  return {curve == Animation::Curve::easeInOut ? 0.42 : 0.0, 0.0, 0.58, 1.0, 1.0, 1.0};
}

}  // namespace

AnimationValue::AnimationValue(const Animation& animation, double unit)
    : from(animation.from / unit),
      to(animation.to / unit),
      delay(static_cast<int>(animation.delay.count())),
      duration(static_cast<int>(animation.duration.count())),
      curve(bezier(animation.curve)) {}

}  // namespace orrelo::quick

#include "moc_AnimationValue.cpp"
