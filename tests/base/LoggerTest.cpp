#include "base/DateFormat.h"
#include "base/Logger.h"
#include "base/TimeZone.h"

#include <orrelo/ORLLogger.h>

#include <gmock/gmock.h>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace orrelo::test {
namespace {

// CTest runs each test in its own process. When run in one process, this test must come first.
TEST(LoggerTest, IsSilentUntilItIsEnabledAndBuildsNoText) {
  bool built = false;
  testing::internal::CaptureStdout();
  log(LogLevel::CRITICAL, [&] {
    built = true;
    return std::string("text");
  });
  log(LogLevel::CRITICAL, "text");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_FALSE(built);
}

TEST(LoggerTest, WritesALevelADateAndTheMessage) {
  const auto date = Date::fromSeconds(1'641'092'645) + std::chrono::microseconds(42);
  setLogClock([date] { return date; });
  ORLLogger::enable();
  testing::internal::CaptureStdout();
  for (const auto level : {LogLevel::TRACE, LogLevel::DEBUG, LogLevel::INFO, LogLevel::NOTICE,
                           LogLevel::WARNING, LogLevel::ERROR, LogLevel::CRITICAL}) {
    log(level, "the message");
  }
  // The date is written in this machine's time zone.
  const auto told = formatDate(date, "yyyy-MM-dd HH:mm:ss.SSSSSSZ", TimeZone::current().offset(date));
  std::string expected;
  for (const auto* const level : {"TRACE", "DEBUG", "INFO", "NOTICE", "WARNING", "ERROR", "CRITICAL"}) {
    expected.append("[OrreloSDK][").append(level).append("] ").append(told).append(" the message\n");
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(), expected);
}

TEST(LoggerTest, LinesOfManyThreadsStayWhole) {
  constexpr int threads = 8;
  constexpr int lines = 200;
  ORLLogger::enable();
  testing::internal::CaptureStdout();
  {
    std::vector<std::jthread> writers;
    for (int thread = 0; thread < threads; ++thread) {
      writers.emplace_back([thread] {
        for (int i = 0; i < lines; ++i) {
          log(LogLevel::INFO, [thread] { return std::string(100, static_cast<char>('a' + thread)) + "."; });
        }
      });
    }
  }
  std::istringstream written(testing::internal::GetCapturedStdout());
  int count = 0;
  for (std::string line; std::getline(written, line); ++count) {
    ASSERT_THAT(line, testing::StartsWith("[OrreloSDK][INFO] "));
    const auto message = line.substr(line.rfind(' ') + 1);
    ASSERT_EQ(message, std::string(100, message.front()) + ".");
  }
  EXPECT_EQ(count, threads * lines);
}

}  // namespace
}  // namespace orrelo::test
