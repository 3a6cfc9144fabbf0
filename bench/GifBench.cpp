// The choice of the grid for an animation's delays, and what a tick of the display costs the main thread.
#include "Benches.h"
#include "Targets.h"
#include "image/GifFiles.h"
#include "image/ImageView.h"
#include "image/gif/GifPlayback.h"
#include "image/gif/GifPlaybackManager.h"
#include "support/TestPlatform.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <random>

namespace orrelo::bench {
namespace {

constexpr int ticksPerSecond = 60;

// The median time of the slowest of several lists of 1,000 delays, in microseconds.
std::vector<double> measureGrid() {
  std::mt19937 random(1);
  std::vector<std::vector<float>> lists;
  for (const unsigned longest : {1U, 2U, 5U, 20U, 200U, 65'535U}) {
    auto& delays = lists.emplace_back(1000);
    for (auto& delay : delays) delay = static_cast<float>(1 + random() % longest) / 100.0F;
  }
  lists.emplace_back(1000, 0.1F);
  auto& uneven = lists.emplace_back(1000, 1.0F);  // what is lost comes last
  std::fill(uneven.begin() + 790, uneven.end(), 0.01F);
  double slowest = 0.0;
  for (const auto& delays : lists) {
    std::vector<double> samples;
    for (int i = 0; i < 200; ++i) {
      const auto start = std::chrono::steady_clock::now();
      benchmark::DoNotOptimize(StepGrid::choose(delays, 0.8F, ticksPerSecond));
      samples.push_back(secondsSince(start) * 1e6);
    }
    slowest = std::max(slowest, quantile(samples, 0.5));
  }
  return {slowest};
}

double threadSeconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// The processor time of a tick of ten views: the 99th percentile, in milliseconds, and the mean for a view,
// in microseconds. The frames are decoded between the ticks, as a worker would do meanwhile.
std::pair<double, double> measureTicks(int delay) {
  constexpr int viewCount = 10;
  test::TestPlatform platform;
  std::vector<test::GifFrameText> frames;
  for (int i = 0; i < 60; ++i) {
    frames.push_back({.rows = std::vector<std::string>(24, std::string(32, static_cast<char>('0' + i % 4))),
                      .left = i * 4,
                      .delay = delay});
  }
  const auto bytes = makeData(test::gifFile(320, 240, frames));
  const auto image = std::get<0>(AnimatedImage::create(bytes, 0.8F, ticksPerSecond, 1.0));
  std::vector<std::shared_ptr<ImageView>> views;
  for (int i = 0; i < viewCount; ++i) {
    auto& view = views.emplace_back(std::make_shared<ImageView>());
    view->setPlacement({true, true});
    GifPlayback::of(view).playAnimation(image, GifPlaybackManager::shared(), GifPlayback::forever);
  }
  std::vector<double> samples;
  double sum = 0.0;
  for (int i = 0; i < 20 * ticksPerSecond; ++i) {
    const double start = threadSeconds();
    platform.displayLink->tick();
    samples.push_back(threadSeconds() - start);
    sum += samples.back();
    platform.loop->run();
  }
  const auto count = static_cast<double>(samples.size());
  return {quantile(samples, 0.99) * 1e3, sum * 1e6 / count / viewCount};
}

}  // namespace

void addGif() {
  add({{"GIF: grid of 1,000 frames, the slowest of eight lists", "us", 30}}, measureGrid);
  add({{"GIF: tick of ten views of 320x240, main thread: p99", "ms", 0.5}},
      [] { return std::vector<double>{measureTicks(4).first}; });
  add({{"GIF: tick of a view with nothing due", "us", 2}},
      [] { return std::vector<double>{measureTicks(60'000).second}; });
}

}  // namespace orrelo::bench
