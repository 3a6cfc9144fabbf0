#include "campaign/CampaignMapper.h"
#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/stamp/StampBoardView.h"
#include "campaign/stamp/StampCampaignView.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "viewkit/CampaignNoticeView.h"
#include "viewkit/InformationView.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

Campaign mapped(const std::string& page) {
  return CampaignMapper().map(CampaignDTO::decode(campaignReply(page)));
}

/// A page with a board of seven missions in `columns`; `more` are fields of its detail, each with a comma.
std::string stampPage(const std::string& order, const std::string& more = "",
                      const std::string& columns = "3") {
  std::string missions;
  for (const auto* const name : {"1", "2", "3", "4", "5", "6", "7"}) {
    missions += std::string(missions.empty() ? "" : ",") + R"({"name":")" + name + R"(","icon_url":""})";
  }
  return R"({"page_type":"stamp_board","page_id":"p","page_detail":{"toolbar_text":"스탬프",)" + more +
         R"("stamp":{"column_count":)" + columns + R"(,"missions":[)" + missions +
         R"(]},"layout":{"component_order":[)" + order + "]}}}";
}

StampCampaign stampOf(const std::string& page) {
  const auto campaign = mapped(page);
  const auto* const stamp = std::get_if<StampCampaign>(&campaign.type);
  if (stamp == nullptr) throw std::runtime_error("no stamp campaign");
  return *stamp;
}

class StampCampaignTest : public testing::Test {
 protected:
  static std::vector<std::string> kinds(const StampCampaignView& view) {
    std::vector<std::string> kinds;
    for (const auto& arranged : view.stackView->arrangedSubviews) {
      kinds.emplace_back(arranged.view->kind());
    }
    return kinds;
  }
  template <class Block>
  static std::shared_ptr<Block> block(const StampCampaignView& view, std::size_t index) {
    return std::dynamic_pointer_cast<Block>(view.stackView->arrangedSubviews.at(index).view);
  }

  TestPlatform platform_;
};

TEST_F(StampCampaignTest, TheLayoutDecidesWhatIsMappedAndShown) {
  const auto whole =
      stampOf(stampPage(R"("notice","banner","stamp","information","main_image","sub_image")",
                        R"("first_title":"미션","main_image_url":"https://img.example/a.png",)"));
  EXPECT_EQ(whole.info, (CampaignInfo{"미션", "", "", std::nullopt}));
  EXPECT_EQ(whole.notice, CampaignNotice{});
  EXPECT_EQ(whole.layout.componentOrder[1], StampCampaignComponent::unknown);
  const StampCampaignView view(whole);
  EXPECT_THAT(kinds(view),
              ElementsAre("CampaignNoticeView", "StampBoardView", "InformationView", "AutoLayoutImageView"));
  EXPECT_EQ(block<CampaignNoticeView>(view, 0)->text, "");

  const auto bare = stampOf(stampPage("", R"("first_title":"미션","notice":["하나"],)"));
  EXPECT_EQ(bare.info, std::nullopt);
  EXPECT_EQ(bare.notice, std::nullopt);
  EXPECT_TRUE(kinds(StampCampaignView(bare)).empty());
}

TEST_F(StampCampaignTest, AComponentNamedTwiceIsShownTwiceOrAtItsLastPlace) {
  const StampCampaignView view(
      stampOf(stampPage(R"("stamp","information","stamp","information")", R"("notice":5,)")));
  EXPECT_THAT(kinds(view), ElementsAre("InformationView", "StampBoardView", "InformationView"));
}

TEST_F(StampCampaignTest, OnlyWholeRowsAreShown) {
  const auto names = [](const std::string& columns) {
    const StampCampaignView view(stampOf(stampPage(R"("stamp")", "", columns)));
    std::string all;
    for (const auto& cell : block<StampBoardView>(view, 0)->cells) all += cell->name;
    return all;
  };
  EXPECT_EQ(names("3"), "123456");
  EXPECT_EQ(names("7"), "1234567");
  EXPECT_EQ(names("-1"), "");
}

TEST_F(StampCampaignTest, ABoardWithoutColumnsStopsTheProcess) {
  EXPECT_DEATH(StampCampaignView(stampOf(stampPage(R"("stamp")", "", "0"))), "A stamp board has no columns");
  EXPECT_TRUE(kinds(StampCampaignView(stampOf(stampPage("", "", "0")))).empty()) << "nothing is laid out";
}

TEST(OptInMarketingCampaignTest, FollowsItsButtonAndSaysWhenThePictureIsMissing) {
  const TestPlatform platform;
  platform.session->responder = [](const URLRequest&) { return ScriptedURLSession::reply(404); };
  const auto page = [](const std::string& visibility, const std::string& enable) {
    return R"({"page_type":"opt_in_marketing","page_id":"p","page_detail":{"toolbar_text":"알림",
      "image_url":"https://img.example/a.png","button_enable":)" +
           enable + R"(,"button_text":"받기","button_visibility":)" + visibility +
           R"(,"color":"#3366FF","notice":["하나"]}})";
  };
  const auto viewOf = [&](const std::string& visibility, const std::string& enable) {
    return OptInMarketingCampaignView::create(
        std::get<OptInMarketingCampaign>(mapped(page(visibility, enable)).type));
  };
  const auto view = viewOf("\"false\"", "\"1\"");
  EXPECT_EQ(view->moveButton,
            (OptInMarketingCampaignView::Button{"받기", true, true, Color::fromHex("#3366FF")}));
  EXPECT_FALSE(viewOf("true", "false")->moveButton.isHidden);
  EXPECT_TRUE(view->errorView->state.value().isHidden);
  const auto failing = viewOf("true", "true");
  platform.loop->run();
  EXPECT_FALSE(failing->errorView->state.value().isHidden);
  int taps = 0;
  failing->onMoveButtonTapped = [&] { ++taps; };
  failing->onTapMoveButton();
  EXPECT_EQ(taps, 1);
  for (const auto& idle : {viewOf("true", "false"), viewOf("false", "true")}) {
    idle->onMoveButtonTapped = failing->onMoveButtonTapped;
    idle->onTapMoveButton();
  }
  EXPECT_EQ(taps, 1) << "disabled or hidden";
}

}  // namespace
}  // namespace orrelo::test
