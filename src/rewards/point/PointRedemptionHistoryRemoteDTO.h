#pragma once

#include "base/Json.h"
#include "rewards/point/PointRedemptionHistory.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrelo {

/// A row of the history as the service sends it. All fields are required.
struct PointRedemptionHistoryRemoteDTO {
  std::int64_t id = 0;
  std::string title;
  std::string body;
  std::string date;
  std::int64_t amount = 0;

  /// Throws a DecodingError.
  static PointRedemptionHistoryRemoteDTO decode(const JsonObject& json);

  PointRedemptionHistory toHistory() && {
    return {id, std::move(title), std::move(body), std::move(date), amount};
  }

  friend bool operator==(const PointRedemptionHistoryRemoteDTO&,
                         const PointRedemptionHistoryRemoteDTO&) = default;
};

/// Decodes a page of the history, which is a bare array, in the order of the service. Throws a DecodingError;
/// an error in one row fails the page.
std::vector<PointRedemptionHistory> decodePointRedemptionHistories(std::string_view json);

}  // namespace orrelo
