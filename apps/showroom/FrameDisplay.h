#pragma once

#include <orrelo/platform/DisplayLink.h>

#include <memory>
#include <utility>
#include <vector>

namespace orrelo::showroom {

/// A display of 60 frames a second whose time stands still between two calls of `tick`, so that animated
/// images show the same frame in every run.
class FrameDisplay final : public DisplayLink {
 public:
  int ticksPerSecond() const override { return 60; }
  [[nodiscard]] Registration start(Tick tick) override {
    auto registration = std::make_shared<const Tick>(std::move(tick));
    ticks_.push_back(registration);
    return registration;
  }

  void tick() {
    std::erase_if(ticks_, [](const auto& tick) { return tick.expired(); });
    const auto ticks = ticks_;  // a tick may add a registration
    for (const auto& each : ticks) {
      if (const auto tick = each.lock()) (*tick)();
    }
  }

 private:
  std::vector<std::weak_ptr<const Tick>> ticks_;
};

}  // namespace orrelo::showroom
