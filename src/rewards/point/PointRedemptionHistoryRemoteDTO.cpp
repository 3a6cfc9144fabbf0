#include "rewards/point/PointRedemptionHistoryRemoteDTO.h"

namespace orrelo {

PointRedemptionHistoryRemoteDTO PointRedemptionHistoryRemoteDTO::decode(const JsonObject& json) {
  return {json.integer("id"), json.text("title"), json.text("description"), json.text("date"),
          json.integer("point_amount")};
}

std::vector<PointRedemptionHistory> decodePointRedemptionHistories(std::string_view json) {
  JsonParser parser;
  const auto rows = parser.parse(json).arrayValue();
  std::vector<PointRedemptionHistory> histories;
  histories.reserve(rows.size());
  rows.forEach([&](const JsonValue& row) {
    histories.push_back(PointRedemptionHistoryRemoteDTO::decode(row.objectValue()).toHistory());
  });
  return histories;
}

}  // namespace orrelo
