#pragma once

#include "platform/store/SqliteEventDatabase.h"
#include "support/ExplanationCapture.h"
#include "support/TemporaryFolder.h"
#include "support/Twins.h"

#include <orrelo/Platform.h>

#include <SQLiteCpp/SQLiteCpp.h>
#include <deque>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::test {

/// Runs posted tasks when the test calls it, on the calling thread.
class StepExecutor final : public SerialExecutor {
 public:
  void post(Task task) override { tasks_.push_back(std::move(task)); }

  bool runOne() {
    if (tasks_.empty()) return false;
    const auto task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
    return true;
  }
  void runAll() {
    while (runOne()) continue;
  }

 private:
  std::deque<Task> tasks_;
};

inline std::vector<std::string> fileNames(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

inline EventRow eventRow(const std::string& id, std::int64_t seconds = 0) {
  return {.eventId = id,
          .userId = "user",
          .eventName = "name",
          .eventTime = Date::fromSeconds(seconds),
          .eventValues = "{}"};
}

inline std::vector<std::string> ids(const std::vector<EventRow>& rows) {
  std::vector<std::string> found;
  for (const auto& row : rows) found.push_back(row.eventId.value_or("absent"));
  return found;
}

}  // namespace orrelo::test
