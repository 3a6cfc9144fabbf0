#include "base/explain.h"

#include <gmock/gmock.h>
#include <stdexcept>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

// CTest runs each test in its own process, whose environment is read once.
class ExplainTest : public testing::Test {
 protected:
  void setSink(ExplanationLevel level) {
    ORLExplanations::setSink(level, [this](ExplanationLevel, std::string_view line) {
      lines_.emplace_back(line);
      if (onLine_) onLine_();
    });
  }
  void setExecutor() {
    setExplanationExecutor([this](std::function<void()> task) { tasks_.push_back(std::move(task)); });
  }
  Lines delivered() {
    for (const auto& task : std::exchange(tasks_, {})) task();
    return std::exchange(lines_, {});
  }
  static std::string standardErrorOf(const std::function<void()>& task) {
    testing::internal::CaptureStderr();
    task();
    return testing::internal::GetCapturedStderr();
  }
  static void explainAll() {
    for (const auto level : {ExplanationLevel::error, ExplanationLevel::warning, ExplanationLevel::info,
                             ExplanationLevel::debug}) {
      explain(level, std::to_string(static_cast<int>(level)));
    }
  }

  Lines lines_;
  std::vector<std::function<void()>> tasks_;
  std::function<void()> onLine_;
};

TEST_F(ExplainTest, isSilentAndBuildsNoTextUntilSomebodyReads) {
  unsetenv("ORRELO_LOG");
  bool isBuilt = false;
  const auto text = [&] {
    isBuilt = true;
    return std::string("text");
  };
  setSink(ExplanationLevel::info);
  ORLExplanations::setSink(ExplanationLevel::debug, {});
  EXPECT_EQ(standardErrorOf([&] { explain(ExplanationLevel::error, text); }), "");
  EXPECT_EQ(explanationThreshold, 0);
  setSink(ExplanationLevel::info);
  explain(ExplanationLevel::debug, text);
  EXPECT_FALSE(isBuilt);
}

TEST_F(ExplainTest, theEnvironmentWritesToStandardErrorUpToItsLevel) {
  setenv("ORRELO_LOG", "Warning", 1);
  EXPECT_EQ(standardErrorOf(&explainAll), "[Orrelo] error: 1\n[Orrelo] warning: 2\n");
  setenv("ORRELO_LOG", "debug", 1);
  setSink(ExplanationLevel::info);
  setExecutor();
  EXPECT_EQ(standardErrorOf(&explainAll), "[Orrelo] error: 1\n[Orrelo] warning: 2\n") << "it is read once";
  EXPECT_THAT(delivered(), ElementsAre("1", "2", "3"));
  EXPECT_EQ(standardErrorOf([] { explain(ExplanationLevel::error, "a\r\n[Orrelo] \x1b[31m\xFF"); }),
            "[Orrelo] error: a  [Orrelo]  [31m\uFFFD\n");
}

TEST_F(ExplainTest, aWrongValueOfTheEnvironmentIsNamedOnce) {
  setenv("ORRELO_LOG", "verbose", 1);
  EXPECT_THAT(standardErrorOf(&explainAll), testing::StartsWith("[Orrelo] error: ORRELO_LOG"));
  EXPECT_EQ(standardErrorOf(&explainAll), "");
}

TEST_F(ExplainTest, aSinkRunsInTasksAndMayThrowAndCauseLines) {
  setSink(ExplanationLevel::warning);
  explain(ExplanationLevel::error, "before the platform");
  EXPECT_THAT(lines_, IsEmpty());
  setExecutor();
  explain(ExplanationLevel::error, "second");
  EXPECT_THAT(lines_, IsEmpty()) << "never inside the call that explains";
  EXPECT_EQ(tasks_.size(), 1U) << "one task for all waiting lines";
  onLine_ = [] {
    explain(ExplanationLevel::error, "caused by the sink");
    throw std::runtime_error("the host's own fault");
  };
  EXPECT_THAT(delivered(), ElementsAre("before the platform", "second"));
  onLine_ = [this] { setSink(ExplanationLevel::error); };
  explain(ExplanationLevel::warning, "third");
  EXPECT_THAT(delivered(), ElementsAre("third"));
  explain(ExplanationLevel::warning, "above the sink's new level");
  for (int n = 0; n < 1003; ++n) explain(ExplanationLevel::error, "many");
  const auto all = delivered();
  EXPECT_EQ(all.size(), 1001U);
  EXPECT_EQ(all.back(), "3 lines are left out: the sink is too slow");
}

TEST_F(ExplainTest, aPlatformThatReplacesAnotherTakesOverWhatWaits) {
  setSink(ExplanationLevel::warning);
  setExecutor();
  explain(ExplanationLevel::error, "first");
  const auto former = std::exchange(tasks_, {});
  setExecutor();
  EXPECT_THAT(delivered(), ElementsAre("first"));
  former.front()();
  setExplanationExecutor([](const std::function<void()>&) { throw std::runtime_error("no thread"); });
  explain(ExplanationLevel::error, "second");
  setExecutor();
  EXPECT_THAT(delivered(), ElementsAre("second"));
}

}  // namespace
}  // namespace orrelo::test
