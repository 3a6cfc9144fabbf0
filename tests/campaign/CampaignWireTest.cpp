#include "CampaignReplies.h"
#include "base/Error.h"

#include <gmock/gmock.h>
#include <map>
#include <optional>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

template <class Detail>
const Detail* as(const CampaignDTO& dto) {
  return std::get_if<Detail>(&dto.page.pageDetail.kind);
}
bool isUnknown(const CampaignDTO& dto) {
  return dto.page.pageDetail == PageDetailDTO{UnknownCampaignDetailDTO{}, "이벤트"};
}

TEST(CampaignWireTest, TheFirstWordInAPageTypeDecidesItsKind) {
  // The detail has the fields of both kinds.
  auto json = attendanceJson();
  json["page"]["page_detail"].update(resultJson()["page"]["page_detail"]);
  const auto kindOf = [&json](const std::string& type) {
    json["page"]["page_type"] = type;
    const auto dto = CampaignDTO::decode(json.dump());
    if (as<AttendanceCampaignPageDetailDTO>(dto) != nullptr) return "attendance";
    if (as<CampaignResultPageDTO>(dto) != nullptr) return "result";
    if (as<DeprecatedPageDTO>(dto) != nullptr) return "deprecated";
    return isUnknown(dto) ? "unknown" : "?";
  };
  const std::map<std::string, std::string> kinds{
      {"attendance", "attendance"},
      {"daily_attendance_v2", "attendance"},
      {"result_of_attendance", "attendance"},
      {"stamp_result", "unknown"},
      {"custom_a_01", "deprecated"},
      {"custom_a_03", "unknown"},
      {"custom_a_01_result", "result"},
      {"RESULT", "unknown"},
      {"", "unknown"},
  };
  for (const auto& [type, kind] : kinds) EXPECT_EQ(kindOf(type), kind) << type;
}

TEST(CampaignWireTest, ADeprecatedPageIsNotEvenRead) {
  auto json = attendanceJson();
  json["page"]["page_type"] = "custom_a_02";
  json["page"]["page_detail"] = 5;
  EXPECT_EQ(CampaignDTO::decode(json.dump()).page.pageDetail, (PageDetailDTO{DeprecatedPageDTO{}, "이벤트"}));
}

TEST(CampaignWireTest, AFlagIsABooleanOrATextThatBeginsTrue) {
  const std::map<std::string, bool> texts{
      {"true", true}, {"TRUE", true}, {"Yes", true},    {"tomorrow", true}, {"1", true},   {"007", true},
      {" \t1", true}, {"+1", true},   {"-0003x", true}, {"0", false},       {"", false},   {"000", false},
      {"no", false},  {"off", false}, {"+-1", false},   {"0 1", false},     {"예", false}, {" ", false}};
  auto json = attendanceJson();
  auto& flag = json["page"]["page_detail"]["button_enable"];
  const auto read = [&] {
    const auto dto = CampaignDTO::decode(json.dump());
    const auto* const detail = as<AttendanceCampaignPageDetailDTO>(dto);
    return detail != nullptr ? std::optional(detail->buttonEnable) : std::nullopt;
  };
  for (const auto& [text, expected] : texts) {
    flag = text;
    EXPECT_EQ(read(), expected) << '"' << text << '"';
  }
  flag = false;
  EXPECT_EQ(read(), false);
  flag = 1;
  EXPECT_EQ(read(), std::nullopt);
}

TEST(CampaignWireTest, BodiesOfAnotherShapeFail) {
  const auto list = storedReply("list.json");
  for (const auto& body : {std::string(), std::string("{}"), std::string("null"), std::string("[[]]"),
                           std::string("[null]"), list.substr(0, list.size() / 2), "\xFF" + list}) {
    EXPECT_THROW(decodedList(body), Error) << body.substr(0, 20);
    EXPECT_THROW(CampaignDTO::decode(body), Error) << body.substr(0, 20);
    EXPECT_THROW(CampaignDTO::PageResponse::decode(body), Error) << body.substr(0, 20);
  }
  EXPECT_THROW(CampaignDTO::decode(list), Error);
  EXPECT_TRUE(decodedList("[]").empty());
}

TEST(CampaignWireTest, ParticipationAnswersWithAPageAlone) {
  const auto page = CampaignDTO::PageResponse::decode(storedReply("participation.json"));
  EXPECT_EQ(page.pageDetail.toolbarText, std::nullopt);
  const auto& detail = std::get<AttendanceCampaignPageDetailDTO>(page.pageDetail.kind);
  EXPECT_FALSE(detail.buttonEnable);
  EXPECT_EQ(detail.highlightIcon, std::nullopt);
  EXPECT_THAT(detail.calendarDescription, ElementsAre("이번 달에는"));
  EXPECT_EQ(detail.rewardMessage->body, "보너스 500 포인트!");
}

}  // namespace
}  // namespace orrelo::test
