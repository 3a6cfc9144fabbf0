#include "campaign/CampaignViewController.h"
#include "modular/content/ActionButtonView.h"
#include "modular/content/PageEntryView.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "viewkit/CampaignRewardViewController.h"

#include <orrelo/Orrelo.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

/// A page with a button, an entry to another page and this dialog.
std::string boxPage(const std::string& status, const std::string& dialog = "{}") {
  return R"({"page_type":"box","page_id":"p-3","page_details_v2":{
    "page_config":{"layout":{"toolbar":{"text":"선물 상자"},"component_order":["action","page_entry_view"],
      "dialog":)" +
         dialog + R"(}},
    "action":[{"button_text":"열기","status_message":")" +
         status + R"(","button_enable":true,"button_url":"/campaigns/c-1/open","button_color":"#3366FF"}],
    "page_entry_view":[{"title":"적립","label":"내역","icon_url":"","campaign_id":"c-2"}]}})";
}

class RecordingRouter final : public PageRouter {
 public:
  void route(const std::shared_ptr<ViewController>& from, const Page& page) override {
    routed.emplace_back(page, from);
  }
  std::vector<std::pair<Page, std::shared_ptr<ViewController>>> routed;
};

/// A modular page on the campaign screen, opened through the façade.
class ModularScreenTest : public testing::Test {
 protected:
  ModularScreenTest() {
    replies_["/config"] = configReply();
    replies_["/campaigns/c-1"] = campaignReply(boxPage("한 번"));
    platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
      for (const auto& [path, body] : replies_) {
        if (request.url.path().ends_with(path)) return ScriptedURLSession::reply(200, body);
      }
      return ScriptedURLSession::reply(200);
    };
    Orrelo::initialize(ORLConfig("shop"));
    Orrelo::setUser(ORLUser("minji", ORLMarketingStatus::unknown, {}));
    host_->appear(false);
    Orrelo::showCampaign("c-1", host_);
    platform_.loop->run();
    screen_ = std::dynamic_pointer_cast<CampaignViewController>(host_->presentedViewController());
  }

  template <class Block>
  std::shared_ptr<Block> block(std::size_t index) const {
    const auto page = std::dynamic_pointer_cast<ModularCampaignView>(screen_->state().content);
    if (!page) return nullptr;
    return std::dynamic_pointer_cast<Block>(page->stackView->arrangedSubviews.at(index).view);
  }
  std::string status() const { return block<ActionButtonView>(0)->content.statusMessage; }
  std::size_t loads() const { return platform_.session->requestsTo("/campaigns/c-1").size(); }

  TestPlatform platform_;
  std::map<std::string, std::string> replies_;
  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
  std::shared_ptr<CampaignViewController> screen_;
};

TEST_F(ModularScreenTest, APressTakesPartAndTheAnswerIsTheNewPage) {
  EXPECT_EQ(screen_->title(), "선물 상자");
  EXPECT_TRUE(screen_->errorView->state.value().isHidden);
  EXPECT_EQ(status(), "한 번");
  replies_["/campaigns/c-1/open"] = boxPage("다 열었어요");
  block<ActionButtonView>(0)->onClick();
  platform_.loop->run();
  EXPECT_EQ(status(), "다 열었어요");
  EXPECT_EQ(platform_.session->requestsTo("/open").at(0).headers.at("buid"), "minji");
  EXPECT_EQ(loads(), 1U);
}

TEST_F(ModularScreenTest, ARewardThatIsClosedLoadsTheCampaignAnew) {
  const std::string dialogs =
      R"({"reward_message":[{"title":"축하","body":"10P","button_text":"확인","color":"#3366FF"}],
          "toast":[{"text":"도착","color":"#000000"}]})";
  replies_["/campaigns/c-1/open"] = boxPage("다 열었어요", dialogs);
  block<ActionButtonView>(0)->onClick();
  platform_.loop->run();
  EXPECT_EQ(screen_->toastLayer->toasts.value().size(), 1U);
  const auto reward =
      std::dynamic_pointer_cast<CampaignRewardViewController>(screen_->presentedViewController());
  ASSERT_TRUE(reward);
  replies_["/campaigns/c-1"] = campaignReply(boxPage("내일 또"));
  reward->close();
  platform_.loop->run();
  EXPECT_EQ(loads(), 2U);
  EXPECT_EQ(status(), "내일 또");
  EXPECT_FALSE(screen_->presentedViewController());
}

TEST_F(ModularScreenTest, AnEntryLeadsElsewhereWhereARouterIsAtHand) {
  screen_->pageRouter = nullptr;
  block<PageEntryView>(1)->didAction();
  const auto router = std::make_shared<RecordingRouter>();
  screen_->pageRouter = router;
  block<PageEntryView>(1)->didAction();
  EXPECT_THAT(router->routed,
              ElementsAre(std::pair<Page, std::shared_ptr<ViewController>>(Page::Campaign{"c-2"}, screen_)));
  router->routed.clear();  // breaks the cycle of screen and router
}

}  // namespace
}  // namespace orrelo::test
