#pragma once

#include "base/Logger.h"

#include <string>
#include <string_view>
#include <vector>

namespace orrelo::test {

/// Captures the lines of the log while it lives.
class LogCapture {
 public:
  LogCapture() {
    setLogSink([this](std::string_view line) { lines_.emplace_back(line); });
  }
  ~LogCapture() {
    setLogSink([](std::string_view) {}, false);
    setLogSink({});
  }
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  const std::vector<std::string>& lines() const { return lines_; }

 private:
  std::vector<std::string> lines_;
};

}  // namespace orrelo::test
