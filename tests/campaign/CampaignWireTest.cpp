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

TEST(CampaignWireTest, EveryFieldOfAReplyArrives) {
  const auto list = decodedList(storedReply("list.json"));
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].id, "c-attendance-11");
  EXPECT_EQ(list[0].label, "출석체크");
  EXPECT_EQ(list[0].name, "11월 매일 출석체크");
  EXPECT_EQ(list[0].iconUrl, "https://cdn.example/icon/attendance.png");
  EXPECT_EQ(list[0].page.pageType, "attendance");
  EXPECT_EQ(list[0].page.pageId, "p-attendance-11");
  EXPECT_EQ(list[0].page.pageDetail.toolbarText, "출석체크");
  const AttendanceCampaignPageDetailDTO attendance{
      .firstTitle = "매일매일 출석하고",
      .secondTitle = "포인트 받아가세요!",
      .statusMessage = "오늘까지 3일 출석했어요",
      .today = "2026-11-21",
      .attendedDate = {"2026-11-01", "2026-11-02", "2026-11-20"},
      .highlightDate = {"2026-11-07", "2026-11-14", "2026-11-20", "2026-11-21"},
      .highlightIcon = "https://cdn.example/icon/gift.png",
      .buttonEnable = true,
      .buttonText = "출석체크 하기",
      .buttonUrl = "/campaigns/c-attendance-11/attend",
      .calendarDescription = {"이번 달에는", "7일마다 보너스!"},
      .color = "#FF5A5F",
      .highlightColor = "#FFE08A",
      .guideMessage = "하루에 한 번 출석할 수 있어요.\n자정이 지나면 다시 출석할 수 있어요.",
      .notice = {"출석은 하루에 한 번만 인정됩니다.", "적립된 포인트는 30일 후 사라집니다."},
      .imageUrl = "https://cdn.example/image/attendance.png",
      .rewardMessage = RewardMessageDTO{"축하합니다 🎉", "100 포인트를 받았어요.", "확인"},
  };
  ASSERT_TRUE(as<AttendanceCampaignPageDetailDTO>(list[0]));
  EXPECT_EQ(*as<AttendanceCampaignPageDetailDTO>(list[0]), attendance);
  const CampaignResultPageDTO result{
      "https://cdn.example/image/result.png",
      "응모해 주셔서 감사합니다.\n당첨자는 개별로 안내해 드려요.",
      {"당첨 발표: 11월 30일", "경품은 사정에 따라 바뀔 수 있습니다."},
      PopUpDialogDTO{"응모 완료!", "럭키드로우", "https://cdn.example/image/pop_up.png", "닫기"}};
  ASSERT_TRUE(as<CampaignResultPageDTO>(list[1]));
  EXPECT_EQ(*as<CampaignResultPageDTO>(list[1]), result);
}

TEST(CampaignWireTest, TheFirstWordInAPageTypeDecidesItsKind) {
  // A detail that both readable kinds can be read from.
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
      {"referral_attendance", "attendance"},
      {"stamp_result", "unknown"},
      {"referral_result", "unknown"},
      {"marketing_result", "unknown"},
      {"custom_a_01", "deprecated"},
      {"custom_a_02", "deprecated"},
      {"custom_a_03", "unknown"},
      {"custom_a_01 ", "unknown"},
      {"custom_a_01_result", "result"},
      {"results", "result"},
      {"RESULT", "unknown"},
      {"Attendance", "unknown"},
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
      {"true", true}, {"TRUE", true}, {"Yes", true},  {"y", true},   {"tomorrow", true}, {"1", true},
      {"9", true},    {"007", true},  {" \t1", true}, {"+1", true},  {"-0003x", true},   {"0y", true},
      {"0", false},   {"", false},    {"000", false}, {"no", false}, {"false", false},   {"off", false},
      {"+-1", false}, {"- 1", false}, {"0 1", false}, {"예", false}, {"--1", false},     {" ", false}};
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
