#include "image/gif/StepGrid.h"

#include "base/preconditionFailure.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orrelo {
namespace {

// The grids' steps in ticks, from the coarsest to the finest; 120 comes before them on a display with 120
// ticks a second.
constexpr int stepFactors[] = {60, 30, 20, 15, 12, 10, 6, 5, 4, 3, 2, 1};
constexpr int fastRate = 120;

using Positions = std::vector<std::int64_t>;

// Sets the positions of the delays, which are totals, and counts the frames that the grid loses. Stops early
// when there are more than `mayLose`.
std::size_t lostFrames(const std::vector<float>& delays, float stepSeconds, float mayLose,
                       Positions& stepOf) {
  stepOf[0] = static_cast<std::int64_t>(delays[0] / stepSeconds);
  std::size_t lost = stepOf[0] == 0 ? 1 : 0;
  for (std::size_t j = 1; j < delays.size(); ++j) {
    stepOf[j] = static_cast<std::int64_t>(delays[j] / stepSeconds);
    if (stepOf[j] != stepOf[j - 1]) continue;
    ++lost;
    if (static_cast<float>(lost) > mayLose) break;
  }
  return lost;
}

StepGrid gridOf(int ticksPerStep, const Positions& stepOf) {
  StepGrid grid{ticksPerStep, stepOf.back(), {}};
  std::vector<StepFrames::Run> runs;
  std::int64_t done = 0;
  for (std::size_t j = 0; j < stepOf.size(); ++j) {
    const auto end = std::min(stepOf[j], grid.stepCount);
    if (end <= done) continue;
    runs.push_back({static_cast<int>(j), end});
    done = end;
  }
  grid.stepFrames = StepFrames(std::move(runs));
  return grid;
}

bool isPosition(float value) {
  return value >= -0x1p63F && value < 0x1p63F;
}

}  // namespace

std::size_t StepFrames::runOf(std::int64_t step) const {
  const auto found = std::upper_bound(runs_.begin(), runs_.end(), step,
                                      [](std::int64_t place, const Run& run) { return place < run.end; });
  return static_cast<std::size_t>(found - runs_.begin());
}

std::optional<std::size_t> StepFrames::runShowing(int frame) const {
  const auto found = std::lower_bound(runs_.begin(), runs_.end(), frame,
                                      [](const Run& run, int index) { return run.frame < index; });
  if (found == runs_.end() || found->frame != frame) return std::nullopt;
  return static_cast<std::size_t>(found - runs_.begin());
}

StepGrid StepGrid::choose(std::span<const float> frameDelays, float frameKeepRatio, int ticksPerSecond) {
  std::vector<int> factors(std::begin(stepFactors), std::end(stepFactors));
  if (ticksPerSecond == fastRate) factors.insert(factors.begin(), fastRate);
  std::vector<float> delays(frameDelays.begin(), frameDelays.end());
  for (std::size_t i = 1; i < delays.size(); ++i) delays[i] += delays[i - 1];
  const float tolerance = frameKeepRatio < 1.0F ? 1.0F - std::max(frameKeepRatio, 0.0F) : 0.0F;
  const float mayLose = static_cast<float>(delays.size()) * tolerance;
  const auto stepSeconds = [&](int factor) {
    return static_cast<float>(factor) / static_cast<float>(factors.front());
  };
  const auto [lowest, highest] = std::minmax_element(delays.begin(), delays.end());
  Positions stepOf(delays.size());
  for (const int factor : factors) {
    const bool isFinest = factor == factors.back();
    const float limit = isFinest ? static_cast<float>(delays.size()) : mayLose;
    const float seconds = stepSeconds(factor);
    // A total that is not finite makes all later ones so.
    if (!std::isfinite(delays.back()) || !isPosition(*lowest / seconds) || !isPosition(*highest / seconds)) {
      preconditionFailure("A frame's delay has no position on the display's grid");
    }
    if (static_cast<float>(lostFrames(delays, seconds, limit, stepOf)) <= limit)
      return gridOf(factor, stepOf);
  }
  return {};  // not reached: the finest grid may lose all frames
}

}  // namespace orrelo
