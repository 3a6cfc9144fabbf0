#pragma once

#include "rewards/point/Point.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orrelo {

/// What the reward tab shows.
struct Reward {
  /// Absent if the point system is switched off or its call failed.
  std::optional<Point> point;
  /// Absent if the gifticon plugin is switched off.
  std::optional<std::int64_t> gifticonCount;
  std::int64_t ticketCount = 0;
  /// The landing page of the exchange; absent if its plugin is disabled.
  std::optional<std::string> externalPointUrl;

  friend bool operator==(const Reward&, const Reward&) = default;
};

}  // namespace orrelo
