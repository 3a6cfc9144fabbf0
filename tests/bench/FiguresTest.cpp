#include "Figures.h"

#include <gmock/gmock.h>
#include <sstream>

namespace orrelo::bench {
namespace {

using testing::HasSubstr;

Figure of(const Target& target, const std::vector<double>& runs) {
  std::stringstream lines;
  for (const double run : runs) writeRun(lines, target, run);
  return readRuns(lines).at(0);
}

TEST(FiguresTest, ARateIsJudgedByItsMedianAndACountByItsWorstRun) {
  const Target ratio{"p50, against a post", "x", 2.5};
  const auto noisy = of(ratio, {9.25, 2.25, 2.5, 1.125, 7.0});
  EXPECT_EQ(noisy.target.name, ratio.name);
  EXPECT_EQ(noisy.median(), 2.5);
  EXPECT_EQ(noisy.spread(), 7.0 - 2.25) << "without the least and the largest of five";
  EXPECT_TRUE(of(ratio, {2.5, 2.5, 9.0}).isMet()) << "the limit itself is met";
  EXPECT_FALSE(of(ratio, {2.0, 2.51, 2.51}).isMet());
  EXPECT_EQ(of(ratio, {1.0, 2.0}).median(), 1.5);

  const Target rate{"rate", "x", 4.0, true};
  EXPECT_TRUE(of(rate, {1.0, 4.0, 5.0}).isMet());
  EXPECT_FALSE(of(rate, {3.9, 3.9, 9.0}).isMet());
  EXPECT_FALSE(of({"paints", "", 1.0}, {1.0, 1.0, 2.0}).isMet()) << "a count has no noise";
  EXPECT_TRUE(of({"only told", "ns"}, {1e9}).isMet());
}

TEST(FiguresTest, ADifferenceExceedsBothSpreads) {
  const auto verdictOf = [](const std::vector<double>& before, const std::vector<double>& now) {
    std::stringstream file;
    writeFigures(file, {of({"a", "us", 3.0}, before), of({"b", ""}, {1.0})});
    const auto kept = readFigures(file);
    EXPECT_EQ(kept.size(), 2u);
    return comparison(kept[0], of({"a", "us", 3.0}, now));
  };
  EXPECT_THAT(verdictOf({1.0, 1.1, 1.2}, {2.0, 2.2, 2.3}),
              testing::AllOf(HasSubstr("2.00  DIFFERS"), HasSubstr("1.10")));
  EXPECT_THAT(verdictOf({1.0, 1.1, 2.5}, {2.0, 2.2, 2.3}), HasSubstr("same"));
  EXPECT_THAT(verdictOf({1.0, 1.0, 1.0, 1.0, 5.0}, {3.0, 3.0, 3.0, 3.0, 3.0}), HasSubstr("DIFFERS"))
      << "one disturbed run hides nothing";
}

}  // namespace
}  // namespace orrelo::bench
