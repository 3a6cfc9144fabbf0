#include "quick/bridge/ScreenBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {

ScreenBridge::ScreenBridge(std::shared_ptr<ViewController> screen, QObject* parent)
    : QObject(parent), screen_(std::move(screen)) {
  subscriptions_.follow(screen_->titles(), [this](const auto&) { Q_EMIT titleChanged(); });
  subscriptions_.follow(screen_->presentations(), [this](const ViewController::Presented& presented) {
    Q_EMIT presentationChanged(presented.animated);
  });
}

QUrl ScreenBridge::delegate() const {
  return delegateOf(screen_->kind());
}

void ScreenBridge::close() {
  const auto keep = screen_;  // the bridge may go with the screen
  keep->close();
}

}  // namespace orrelo::quick

#include "moc_ScreenBridge.cpp"
