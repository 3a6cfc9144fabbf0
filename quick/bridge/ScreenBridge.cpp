#include "quick/bridge/ScreenBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {

ScreenBridge::ScreenBridge(std::shared_ptr<ViewController> screen, QObject* parent)
    : QObject(parent), screen_(std::move(screen)) {
  subscriptions_.follow(screen_->titleChanges(), [this] { Q_EMIT titleChanged(); });
  subscriptions_.follow(screen_->presentedChanges(),
                        [this] { Q_EMIT presentationChanged(screen_->presented().animated); });
}

QUrl ScreenBridge::delegate() const {
  return delegateOf(screen_->kind());
}

AnimationValue ScreenBridge::reveal() const {
  const auto transition = screen_->transition().value_or(Transition());
  return AnimationValue(Animation{.from = 1.0, .duration = transition.duration, .curve = transition.curve});
}

void ScreenBridge::close() {
  const auto keep = screen_;  // closing may delete this bridge, which owns the screen
  keep->close();
}

}  // namespace orrelo::quick

#include "moc_ScreenBridge.cpp"
