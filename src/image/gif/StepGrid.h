#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace orrelo {

/// For each step of an animation the index of the frame to show, kept as runs: its size depends on the number
/// of frames, not on that of the steps.
class StepFrames {
 public:
  struct Run {
    int frame;
    /// The step after the run's last one.
    std::int64_t end;

    friend bool operator==(const Run&, const Run&) = default;
  };

  StepFrames() = default;
  explicit StepFrames(std::vector<Run> runs) : runs_(std::move(runs)) {}

  /// In ascending order of frames and of steps.
  const std::vector<Run>& runs() const { return runs_; }
  std::int64_t size() const { return runs_.empty() ? 0 : runs_.back().end; }
  /// The index in `runs` of the one that holds the step, which is at least 0 and less than `size`.
  std::size_t runOf(std::int64_t step) const;
  /// The index in `runs` of the one that shows the frame; nullopt if the grid loses it.
  std::optional<std::size_t> runShowing(int frame) const;

 private:
  std::vector<Run> runs_;
};

/// A grid of the display's ticks, onto which the delays of an animation's frames are mapped.
struct StepGrid {
  /// The display's ticks in a step.
  int ticksPerStep = 1;
  /// The length of the animation in steps; 0 or less if it has no length.
  std::int64_t stepCount = 0;
  StepFrames stepFrames;

  /// Chooses the coarsest grid that loses at most a share of 1 - `frameKeepRatio` of the frames; the finest
  /// loses as many as it must. `frameDelays` are in seconds, at least one. Stops the process if a delay's
  /// position on the grid is not finite or outside 64 bits.
  static StepGrid choose(std::span<const float> frameDelays, float frameKeepRatio, int ticksPerSecond);
};

}  // namespace orrelo
