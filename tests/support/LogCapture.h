#pragma once

#include "base/Logger.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo::test {

/// Captures the lines of the log, of all threads, while it lives.
class LogCapture {
 public:
  LogCapture() {
    setLogSink([this](std::string_view line) {
      const std::lock_guard lock(mutex_);
      lines_.emplace_back(line);
    });
  }
  ~LogCapture() {
    setLogSink([](std::string_view) {}, false);
    setLogSink({});
  }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  std::vector<std::string> lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace orrelo::test
