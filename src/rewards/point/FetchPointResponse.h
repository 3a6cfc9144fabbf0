#pragma once

#include "rewards/point/Point.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orrelo {

/// The balance as the service sends it. All fields are required.
struct FetchPointResponse {
  std::int64_t amount = 0;
  std::string body;
  std::string unit;
  std::string iconUrl;

  /// Throws a DecodingError.
  static FetchPointResponse decode(std::string_view json);

  Point toPoint() const { return {amount, body, unit, iconUrl}; }

  friend bool operator==(const FetchPointResponse&, const FetchPointResponse&) = default;
};

}  // namespace orrelo
