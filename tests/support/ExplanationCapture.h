#pragma once

#include "base/explain.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo::test {

/// Captures the explanations of all threads while it lives, as "warning: message".
class ExplanationCapture {
 public:
  explicit ExplanationCapture(ExplanationLevel highest = ExplanationLevel::warning) {
    setExplanationCapture([this, highest](ExplanationLevel level, std::string_view line) {
      static constexpr const char* names[] = {"", "error: ", "warning: ", "info: ", "debug: "};
      if (level > highest) return;
      const std::lock_guard lock(mutex_);
      lines_.push_back(names[static_cast<int>(level)] + std::string(line));
    });
  }
  ~ExplanationCapture() { setExplanationCapture({}); }
  ExplanationCapture(const ExplanationCapture&) = delete;
  ExplanationCapture& operator=(const ExplanationCapture&) = delete;

  std::vector<std::string> lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

}  // namespace orrelo::test
