// The effect of values that are missing, of another type or huge on the records of points and rewards.
#include "base/Error.h"
#include "rewards/RewardCountDTO.h"
#include "rewards/point/FetchPointResponse.h"
#include "rewards/point/PointRedemptionHistoryRemoteDTO.h"
#include "support/Json.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

struct Record {
  Json whole;
  std::vector<std::string> integers;
  std::vector<std::string> texts;
  /// Throws what the decoder throws.
  std::function<void(const std::string&)> decode;
};

std::vector<Record> records() {
  return {
      {{{"amount", 5}, {"description", "포인트"}, {"point_unit", "P"}, {"icon_url", ""}},
       {"amount"},
       {"description", "point_unit", "icon_url"},
       [](const auto& json) { FetchPointResponse::decode(json); }},
      {{{"id", 1}, {"title", "출석"}, {"description", "매일"}, {"date", ""}, {"point_amount", -3}},
       {"id", "point_amount"},
       {"title", "description", "date"},
       [](const auto& json) { decodePointRedemptionHistories("[" + json + "]"); }},
      {{{"point", 1}, {"ticket", 2}, {"gifticon", 3}},
       {"point", "ticket", "gifticon"},
       {},
       [](const auto& json) { RewardCountDTO::decode(json); }},
  };
}

bool isDecoded(const Record& record, const std::string& json) {
  try {
    record.decode(json);
    return true;
  } catch (const Error& error) {
    EXPECT_EQ(error.domain(), "DecodingError");
    return false;
  }
}

Json changed(const Record& record, const std::string& key, const Json& value) {
  auto json = record.whole;
  json[key] = value;
  return json;
}

TEST(PointPresenceTest, EveryFieldIsRequired) {
  for (const auto& record : records()) {
    EXPECT_TRUE(isDecoded(record, record.whole.dump())) << record.whole;
    auto keys = record.integers;
    keys.insert(keys.end(), record.texts.begin(), record.texts.end());
    for (const auto& key : keys) {
      auto without = record.whole;
      without.erase(key);
      for (const auto& each :
           {without, changed(record, key, nullptr), changed(record, key, Json::array({1}))}) {
        EXPECT_FALSE(isDecoded(record, each.dump())) << each;
      }
    }
    for (const auto& key : record.texts)
      EXPECT_FALSE(isDecoded(record, changed(record, key, 5).dump())) << key;
    auto more = record.whole;
    more["hologram"] = {{"depth", 3}};
    EXPECT_TRUE(isDecoded(record, more.dump())) << "unknown keys are ignored";
  }
}

TEST(PointPresenceTest, AnIntegerIsOneOf64Bits) {
  for (const auto& record : records()) {
    for (const auto& key : record.integers) {
      for (const auto& value : {Json(std::numeric_limits<std::int64_t>::min()),
                                Json(std::numeric_limits<std::int64_t>::max()), Json(7.0)}) {
        EXPECT_TRUE(isDecoded(record, changed(record, key, value).dump())) << key << ": " << value;
      }
      for (const auto& value :
           {Json(std::uint64_t{1} << 63), Json(1e308), Json(1.5), Json("5"), Json(true)}) {
        EXPECT_FALSE(isDecoded(record, changed(record, key, value).dump())) << key << ": " << value;
      }
    }
  }
}

TEST(PointPresenceTest, ATextMayBeLongAndARowThatIsBrokenFailsItsPage) {
  const std::string longText(1024 * 1024, 'x');
  for (const auto& record : records()) {
    for (const auto& key : record.texts) {
      EXPECT_TRUE(isDecoded(record, changed(record, key, longText).dump())) << key;
    }
    for (const auto* const other : {"null", "5", "[[]]", "[5]", "{", "\"\""}) {
      EXPECT_FALSE(isDecoded(record, other)) << other;
    }
  }
  const auto row = records()[1].whole;
  EXPECT_EQ(decodePointRedemptionHistories(Json{row, row}.dump()).size(), 2U);
  EXPECT_THROW(decodePointRedemptionHistories(Json{row, {{"id", 2}}}.dump()), Error);
  EXPECT_THROW(decodePointRedemptionHistories(row.dump()), Error) << "an object is no page";
}

}  // namespace
}  // namespace orrelo::test
