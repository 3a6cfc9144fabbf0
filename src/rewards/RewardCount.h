#pragma once

#include <cstdint>

namespace orrelo {

/// How many rewards of each sort a user has.
struct RewardCount {
  std::int64_t point = 0;
  std::int64_t ticket = 0;
  std::int64_t gifticon = 0;

  friend bool operator==(const RewardCount&, const RewardCount&) = default;
};

}  // namespace orrelo
