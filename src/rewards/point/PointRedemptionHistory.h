#pragma once

#include <cstdint>
#include <string>

namespace orrelo {

/// A movement of points.
struct PointRedemptionHistory {
  std::int64_t id = 0;
  std::string title;
  std::string body;
  /// As the service sends it (RFC 3339); it may be unreadable.
  std::string date;
  /// Negative if points were spent.
  std::int64_t amount = 0;

  friend bool operator==(const PointRedemptionHistory&, const PointRedemptionHistory&) = default;
};

}  // namespace orrelo
