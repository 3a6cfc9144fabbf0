#include "base/preconditionFailure.h"
#include "image/gif/StepGrid.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <stdexcept>

namespace orrelo::test {
namespace {

std::string described(const std::vector<float>& delays, float keep = 0.8F, int rate = 60) {
  const auto grid = StepGrid::choose(delays, keep, rate);
  std::string text = std::to_string(grid.ticksPerStep) + " x " + std::to_string(grid.stepCount) + ":";
  for (std::int64_t step = 0; step < grid.stepFrames.size(); ++step) {
    text += " " + std::to_string(grid.stepFrames.runs()[grid.stepFrames.runOf(step)].frame);
  }
  return text;
}

TEST(StepGridTest, TakesTheCoarsestGridThatLosesFewEnoughFrames) {
  struct Row {
    std::vector<float> delays;
    float keep;
    int rate;
    std::string grid;
  };
  const std::vector<Row> rows{
      {{0.1F, 0.1F, 0.1F}, 0.8F, 60, "6 x 3: 0 1 2"},
      {{0.1F, 0.1F, 0.1F}, 0.8F, 120, "12 x 3: 0 1 2"},
      {{0.1F, 0.1F, 0.1F}, 0.8F, 144, "6 x 3: 0 1 2"},
      {{1.0F, 2.0F}, 0.8F, 120, "120 x 3: 0 1 1"},
      {{0.5F, 0.5F, 1.0F}, 0.8F, 60, "30 x 4: 0 1 2 2"},
      // No frame of five may be lost, since 5 * (1 - 0.8F) is a little less than 1; one of six may.
      {{1.0F, 1.0F, 1.0F, 0.5F, 1.0F}, 0.8F, 60, "30 x 9: 0 0 1 1 2 2 3 4 4"},
      {{1.0F, 1.0F, 1.0F, 0.5F, 1.0F, 1.0F}, 0.8F, 60, "60 x 5: 0 1 2 4 5"},
      {{1.0F, 1.0F, 1.0F, 0.5F, 1.0F, 1.0F}, 1.0F, 60, "30 x 11: 0 0 1 1 2 2 3 4 4 5 5"},
      {{1.0F, 0.0F}, 0.0F, 60, "60 x 1: 0"},
      {{1.0F, 0.0F, 0.0F}, -3.0F, 60, "60 x 1: 0"},
      // The finest grid is taken whatever it loses.
      {{0.01F, 0.01F, 0.01F}, 0.8F, 60, "1 x 1: 1"},
      {{0.0F, 0.0F}, 0.8F, 60, "1 x 0:"},
      // 1 / (1.0F / 60) is a little less than 60.
      {{0.0F, 1.0F}, 0.8F, 60, "1 x 59: 1 1"},
      {{2.0F, -1.0F}, 0.8F, 60, "60 x 1: 0"},
  };
  for (const auto& row : rows) {
    const auto text = described(row.delays, row.keep, row.rate);
    EXPECT_TRUE(text.starts_with(row.grid)) << text << " instead of " << row.grid;
  }
}

TEST(StepGridTest, ItsMemoryGrowsWithTheFramesAlone) {
  std::vector<float> delays(500, 0.02F);
  delays.resize(2000, 655.35F);
  const auto grid = StepGrid::choose(delays, 0.8F, 60);
  EXPECT_GT(grid.stepCount, 10'000'000);
  EXPECT_LE(grid.stepFrames.runs().size(), 2000u);
}

TEST(StepGridTest, APositionWithoutAPlaceStopsTheProcess) {
  setPreconditionFailureHandler(
      [](std::string_view message) { throw std::runtime_error(std::string(message)); });
  const float huge = std::numeric_limits<float>::max();
  for (const std::vector<float>& delays : {std::vector<float>{NAN},
                                           {1.0F, INFINITY},
                                           {huge, huge},
                                           {1.0F, 1e19F, 1.0F},
                                           {-1e19F},
                                           {2e17F, 1.0F}}) {
    // The last one has a place on each grid that comes into question.
    const bool isInRange = delays.front() == 2e17F;
    if (isInRange) {
      EXPECT_EQ(StepGrid::choose(delays, 0.0F, 60).ticksPerStep, 60);
    } else {
      EXPECT_THROW(StepGrid::choose(delays, 0.8F, 60), std::runtime_error);
    }
  }
  setPreconditionFailureHandler({});
}

}  // namespace
}  // namespace orrelo::test
