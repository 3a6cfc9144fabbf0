#pragma once

#include <cstdint>
#include <string_view>

namespace orrelo {

/// The counts as the service sends them. All fields are required.
struct RewardCountDTO {
  std::int64_t point = 0;
  std::int64_t ticket = 0;
  std::int64_t gifticon = 0;

  /// Throws a DecodingError.
  static RewardCountDTO decode(std::string_view json);

  friend bool operator==(const RewardCountDTO&, const RewardCountDTO&) = default;
};

}  // namespace orrelo
