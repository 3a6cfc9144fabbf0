#pragma once

#include <cstdint>
#include <string>

namespace orrelo {

/// A user's balance in the point system.
struct Point {
  std::int64_t amount = 0;
  /// The caption above the balance.
  std::string body;
  /// The unit of the balance and of each row of the history, such as "P".
  std::string unit;
  std::string iconUrl;

  /// The balance that is shown if the point system is switched off.
  static Point defaultBalance() { return {.amount = 0, .body = "내 포인트", .unit = {}, .iconUrl = {}}; }

  friend bool operator==(const Point&, const Point&) = default;
};

}  // namespace orrelo
