#include "CampaignReplies.h"
#include "base/ErrorText.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

TEST(CampaignMapperTest, AttendanceTakesEveryFieldToItsPlace) {
  const auto campaign = mapped(attendanceJson());
  EXPECT_EQ(campaign.id, "c-attendance-11");
  EXPECT_EQ(campaign.label, "출석체크");
  EXPECT_EQ(campaign.name, "11월 매일 출석체크");
  EXPECT_EQ(campaign.iconUrl, "https://cdn.example/icon/attendance.png");
  EXPECT_EQ(campaign.title, "출석체크");
  const AttendanceCampaign expected{
      .campaignInfo = {"매일매일 출석하고", "포인트 받아가세요!",
                       "하루에 한 번 출석할 수 있어요.\n자정이 지나면 다시 출석할 수 있어요.",
                       "https://cdn.example/image/attendance.png"},
      .action = {"출석체크 하기", "오늘까지 3일 출석했어요", "/campaigns/c-attendance-11/attend", true},
      .calendar = {.today = {2026, 11, 21},
                   .primaryHighlightDates = {day(2026, 11, 1), day(2026, 11, 2), day(2026, 11, 20)},
                   .secondaryHighlightDates = {day(2026, 11, 7), day(2026, 11, 14), day(2026, 11, 20),
                                               day(2026, 11, 21)},
                   .highlightIconUrl = "https://cdn.example/icon/gift.png",
                   .descriptions = {"이번 달에는", "7일마다 보너스!"},
                   .headers = {"일", "월", "화", "수", "목", "금", "토"},
                   .primaryColor = {1.0, 90 / 255.0, 95 / 255.0},
                   .secondaryColor = {1.0, 224 / 255.0, 138 / 255.0}},
      .notice = {{"출석은 하루에 한 번만 인정됩니다.", "적립된 포인트는 30일 후 사라집니다."}},
      .rewardMessage = CampaignRewardMessage{"축하합니다 🎉", "100 포인트를 받았어요.", "확인"},
  };
  EXPECT_EQ(std::get<AttendanceCampaign>(campaign.type), expected);
}

TEST(CampaignMapperTest, AResultBearsTheCampaignsNameAndLabel) {
  auto json = resultJson();
  const auto campaign = mapped(json);
  const CampaignResult expected{
      "여름 럭키드로우",
      "종료",
      "https://cdn.example/image/result.png",
      "응모해 주셔서 감사합니다.\n당첨자는 개별로 안내해 드려요.",
      {{"당첨 발표: 11월 30일", "경품은 사정에 따라 바뀔 수 있습니다."}},
      CampaignPopUpDialog{"응모 완료!", "럭키드로우", "https://cdn.example/image/pop_up.png", "닫기"}};
  EXPECT_EQ(std::get<CampaignResult>(campaign.type), expected);
  json["page"]["page_detail"]["pop_up"].erase("button_text");
  EXPECT_EQ(std::get<CampaignResult>(mapped(json).type).popUpDialog, std::nullopt);
}

TEST(CampaignMapperTest, UnreadableAndDeprecatedPagesAreUnknownCampaigns) {
  auto json = attendanceJson();
  json["page"]["page_detail"].erase("highlighted_date");
  auto deprecated = attendanceJson();
  deprecated["page"]["page_type"] = "custom_a_01";
  for (const auto& each : {json, deprecated, unknownJson()}) {
    const auto campaign = mapped(each);
    EXPECT_EQ(campaign.type, Campaign::CampaignType(UnknownCampaign{}));
    EXPECT_EQ(campaign.title, "이벤트");
    EXPECT_EQ(pageName(campaign), "unknown");
  }
}

TEST(CampaignMapperTest, EachKindHasItsPageNameAndSomeAPublicType) {
  const std::string none = " CampaignTypeError.mappingError";
  EXPECT_THAT((std::vector{described(AttendanceCampaign{}), described(ReferralCampaign{}),
                           described(OptInMarketingCampaign{}), described(StampCampaign{}),
                           described(CampaignResult{}), described(InduceUpdateCampaign{}),
                           described(DeprecatedCampaign{"custom_a_01"}), described(UnknownCampaign{})}),
              ElementsAre("attendance 0", "referral 1", "opt_in_marketing 2", "stamp" + none, "result" + none,
                          "unknown" + none, "deprecated(custom_a_01)" + none, "unknown" + none));
}

TEST(ErrorTextTest, FourErrorsHaveWordsOfTheirOwn) {
  EXPECT_EQ(errorText(makeError(OrreloError::emptyCampaigns)), "진행 중인 캠페인이 없습니다.");
  EXPECT_EQ(errorText(makeError(OrreloError::notLoggedIn)), "로그인 후 다시 시도해 주세요.");
  EXPECT_EQ(errorText(makeError(OrreloError::unknownCampaign)), "앱을 업데이트 후 다시 시도해 주세요.");
  EXPECT_EQ(errorText(makeError(OrreloError::deprecatedCampaign)), "더 이상 지원하지 않는 캠페인입니다.");
  EXPECT_EQ(errorText(makeError(OrreloError::network)), "잠시 후 다시 시도해 주세요.");
  EXPECT_EQ(errorText(Error("URLError", "notLoggedIn", "문장")), "잠시 후 다시 시도해 주세요.");
}

}  // namespace
}  // namespace orrelo::test
