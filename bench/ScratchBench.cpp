// The cost of a stroke on a scratch card, and of measuring the share that it has cleared.
#include "Benches.h"
#include "Targets.h"
#include "modular/scratch/ScratchMaskView.h"
#include "support/TestPlatform.h"

#include <stdexcept>

namespace orrelo::bench {
namespace {

class Listener final : public ScratchMaskViewDelegate {
 public:
  void didScratch(double ratio) override { last = ratio; }
  double last = 0.0;
};

double millisecondsOf(const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  return secondsSince(start) * 1e3;
}

std::vector<double> measure() {
  test::TestPlatform platform;
  platform.application->setScreenScale(3.0);
  const auto listener = std::make_shared<Listener>();
  std::vector<double> strokes;
  std::vector<double> measurements;
  for (int sample = 0; sample < 200; ++sample) {
    const auto view = std::make_shared<ScratchMaskView>();
    view->delegate = listener;
    view->setSize({350.0, 80.0});
    view->takeTouched();
    view->begin({5.0, 20.0});
    strokes.push_back(millisecondsOf([&] {
      for (int i = 1; i <= 20; ++i) view->erase({5.0 + 17.0 * i, i % 2 == 0 ? 20.0 : 60.0});
    }));
    measurements.push_back(millisecondsOf([&] {
      view->measure();
      platform.loop->run();
    }));
    if (listener->last < 0.5) throw std::runtime_error("the stroke has rubbed off too little");
  }
  return {quantile(strokes, 0.5), quantile(measurements, 0.5)};
}

}  // namespace

void addScratch() {
  add({{"a stroke of 20 points on a card of 350 by 80 at scale 3", "ms", 1},
       {"a measurement of that card", "ms", 0.3}},
      measure);
}

}  // namespace orrelo::bench
