#pragma once

#include <chrono>
#include <compare>
#include <cstdint>

namespace orrelo {

/// A point in time: UTC, counted in microseconds from 1970-01-01T00:00:00Z. A plain value.
class Date {
 public:
  constexpr Date() = default;
  constexpr explicit Date(std::chrono::microseconds sinceEpoch) : sinceEpoch_(sinceEpoch) {}

  static constexpr Date fromSeconds(std::int64_t seconds) { return Date(std::chrono::seconds(seconds)); }

  constexpr std::chrono::microseconds sinceEpoch() const { return sinceEpoch_; }

  friend constexpr Date operator+(Date date, std::chrono::microseconds span) {
    return Date(date.sinceEpoch_ + span);
  }
  friend constexpr Date operator-(Date date, std::chrono::microseconds span) {
    return Date(date.sinceEpoch_ - span);
  }
  friend constexpr std::chrono::microseconds operator-(Date a, Date b) {
    return a.sinceEpoch_ - b.sinceEpoch_;
  }
  friend constexpr auto operator<=>(Date, Date) = default;

 private:
  std::chrono::microseconds sinceEpoch_{0};
};

}  // namespace orrelo
