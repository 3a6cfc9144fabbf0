#include "CampaignFixture.h"
#include "base/Logger.h"
#include "campaign/entry/CampaignFloatingActionButton.h"
#include "model/UserManager.h"
#include "support/Reports.h"
#include "ui/KeyWindow.h"
#include "ui/RunningKit.h"

#include <gmock/gmock.h>
#include <utility>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto buttonKey = "orrelo_floating_action_button";
constexpr auto greenLook =
    R"({"iconUrl":"https://img.example/old.png","color":"#00FF00","tooltipMessage":""})";
const std::string fab =
    R"({"icon":"https://img.example/fab.png","color":"#FF0000","tool_tip":"출석하고 100P 받기"})";
const FloatingActionButtonProperty property{"https://img.example/fab.png", "#FF0000", "출석하고 100P 받기"};

class Navigator final : public CampaignNavigator {
 public:
  void showHome(const std::shared_ptr<ViewController>& with,
                const std::optional<std::string>& userId) override {
    opened.emplace_back(with, userId);
  }
  std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const override {
    return nullptr;
  }
  std::vector<std::pair<std::shared_ptr<ViewController>, std::optional<std::string>>> opened;
};

class EntryViewTest : public CampaignFixture {
 protected:
  EntryViewTest() {
    setUserEventDelegate(reports_);
    initialize();
  }
  ~EntryViewTest() override {
    RunningKit::makeCurrent(nullptr);
    setCurrentUserId(std::nullopt);
    setUserEventDelegate(nullptr);
  }

  void initialize() {
    properties_ = CampaignViewPropertyRepositoryImpl::create(
        CampaignViewPropertyLocalDataSource(suite_),
        CampaignViewPropertyRemoteDataSource(networkConfig_, client_, scheduler()));
    RunningKit::makeCurrent(std::make_shared<RunningKit>(
        RunningKit{.fetchConfigUseCase = nullptr,
                   .campaignNavigator = navigator_,
                   .fetchFloatingActionButtonPropertyUseCase =
                       std::make_shared<FetchFloatingActionButtonPropertyUseCase>(properties_),
                   .routers = {}}));
  }
  void setUser(const std::optional<std::string>& id) {
    UserManager().setUserId(id);
    setCurrentUserId(id);
    platform_.loop->run();
  }
  void keep(const std::string& json) {
    const auto* const bytes = reinterpret_cast<const std::byte*>(json.data());
    suite_->set(buttonKey, DefaultsData(bytes, bytes + json.size()));
  }
  std::vector<std::string> takeReports() {
    std::vector<std::string> lines;
    for (const auto& event : std::exchange(reports_->events, {})) {
      lines.push_back(event.name + " " +
                      std::get<std::string>(event.values->at("campaign_entry_point_name").variant()));
    }
    return lines;
  }
  /// Fetches the look and returns it; the error's description if that fails.
  std::string fetched() {
    const auto heard = listen(properties_->fetch("user-1"));
    return heard->elements.empty() ? heard->end : heard->elements.front().encode();
  }

  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<Navigator> navigator_ = std::make_shared<Navigator>();
  std::shared_ptr<CampaignViewPropertyRepositoryImpl> properties_;
};

TEST_F(EntryViewTest, StartsAsTheUserIsAndFollowsEachChangeWithAFade) {
  EXPECT_EQ(CampaignEntryView::create()->state().alpha, 0.0);
  setUser("minji");
  const auto view = CampaignEntryView::create();
  view->entryName = "shop";
  EXPECT_EQ(view->state().alpha, 1.0);
  EXPECT_EQ(view->state().fade, std::nullopt);
  EXPECT_THAT(takeReports(), IsEmpty()) << "it was visible from the start";
  setUser(std::nullopt);
  const Animation out{
      .from = 1.0, .to = 0.0, .duration = std::chrono::seconds(1), .curve = Animation::Curve::easeOut};
  EXPECT_EQ(view->state(), (CampaignEntryView::State{0.0, out, 1}));
  setUser("jun");
  EXPECT_EQ(view->state().fade->from, 0.0);
  EXPECT_EQ(view->state().alpha, 1.0);
  setUser("jun");
  EXPECT_EQ(view->state().fadeCount, 3);
  EXPECT_THAT(takeReports(),
              ElementsAre("ol_campaign_entry_point_show shop", "ol_campaign_entry_point_show shop"))
      << "one for each user, the same one included";
  platform_.application->setPrefersReducedMotion(true);
  setUser(std::nullopt);
  EXPECT_EQ(view->state(), (CampaignEntryView::State{0.0, std::nullopt, 4}));
}

TEST_F(EntryViewTest, ATapOpensHomeOverTheTopmostScreen) {
  setUser("minji");
  const auto view = CampaignEntryView::create();
  const auto root = std::make_shared<HostViewController>();
  const auto above = std::make_shared<HostViewController>();
  root->present(above, false);
  view->orlHandleTapGesture(root);
  EXPECT_THAT(takeReports(), IsEmpty()) << "it has no name";
  view->entryName = "shop";
  setKeyWindowRootViewController(above);
  view->orlHandleTapGesture(nullptr);
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_entry_point_click shop"));
  using Opened = decltype(navigator_->opened)::value_type;
  EXPECT_THAT(navigator_->opened, ElementsAre(Opened{above, "minji"}, Opened{above, "minji"}));
  setUser(std::nullopt);
  takeReports();
  view->orlHandleTapGesture(root);
  EXPECT_EQ(navigator_->opened.size(), 2U) << "it is invisible";
  EXPECT_THAT(takeReports(), IsEmpty());
}

TEST_F(EntryViewTest, TheHostMayDestroyTheViewAsTheTapIsReported) {
  class Destroying final : public ORLUserEventDelegate {
   public:
    explicit Destroying(std::shared_ptr<CampaignEntryView>& view) : view_(view) {}
    void userEventDidOccur(const ORLUserEvent&) override { view_.reset(); }

   private:
    std::shared_ptr<CampaignEntryView>& view_;
  };
  setUser("minji");
  auto view = CampaignEntryView::create();
  view->entryName = "shop";
  const auto destroying = std::make_shared<Destroying>(view);
  setUserEventDelegate(destroying);
  const auto root = std::make_shared<HostViewController>();
  view->orlHandleTapGesture(root);
  EXPECT_EQ(view, nullptr);
  EXPECT_EQ(navigator_->opened.size(), 1U);
}

TEST_F(EntryViewTest, IsInertWithoutAKit) {
  setUser("minji");
  RunningKit::makeCurrent(nullptr);
  std::vector<std::string> lines;
  setLogSink([&](std::string_view line) { lines.emplace_back(line); });
  const auto view = CampaignEntryView::create();
  const auto button = CampaignFloatingActionButton::create();
  setLogSink(nullptr, false);
  const auto line =
      testing::EndsWith("Orrelo SDK is not initialized. Call Orrelo.initialize() before orlInitialize()");
  EXPECT_THAT(lines, ElementsAre(line, line));
  initialize();
  setUser("jun");
  EXPECT_EQ(view->state(), CampaignEntryView::State());
  EXPECT_EQ(button->state(), CampaignEntryView::State());
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(EntryViewTest, TheButtonWaitsForAUserAndThenTakesTheServicesLook) {
  setUser("early");
  const auto button = CampaignFloatingActionButton::create();
  platform_.loop->run();
  EXPECT_EQ(button->state().alpha, 0.0) << "the stream of users has no memory";
  EXPECT_THAT(requests(), IsEmpty());
  setUser(std::nullopt);
  EXPECT_THAT(requests(), IsEmpty());
  takeReports();
  lay(fab);
  setUser("minji");
  EXPECT_EQ(button->state().alpha, 1.0);
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_entry_point_show default_floating_action_button"));
  EXPECT_EQ(requests().at(0).url.text(), "https://api.example/sdk/app/fab");
  EXPECT_EQ(requests()[0].headers.at("buid"), "minji");
  EXPECT_EQ(button->color.value(), (Color{1.0, 0.0, 0.0}));
  EXPECT_EQ(button->tooltipView->state.value().text, property.tooltipMessage);
  EXPECT_FALSE(button->tooltipView->state.value().isHidden);
  EXPECT_EQ(requests().back().url.text(), property.iconUrl);
  button->tooltipDidFade();
  EXPECT_TRUE(button->tooltipView->state.value().isHidden);
  keep(greenLook);
  setUser("minji");
  EXPECT_EQ(button->color.value(), (Color{0.0, 1.0, 0.0}));
  EXPECT_TRUE(button->tooltipView->state.value().isHidden) << "there is nothing to say";
}

TEST_F(EntryViewTest, AFailedFetchLeavesTheButtonPlainForGood) {
  const auto button = CampaignFloatingActionButton::create();
  lay("", 500);
  setUser("minji");
  keep(greenLook);
  setUser("minji");
  EXPECT_EQ(button->state().alpha, 1.0);
  EXPECT_EQ(button->color.value(), (Color{1.0, 1.0, 1.0}));
  EXPECT_TRUE(button->tooltipView->state.value().isHidden);
}

TEST_F(EntryViewTest, TheServiceIsAskedOnceAndThenTheCopyIsUsed) {
  keep(greenLook);
  lay(fab);
  EXPECT_EQ(fetched(), property.encode()) << "the first fetch does not use the copy";
  EXPECT_EQ(fetched(), property.encode());
  EXPECT_EQ(requests().size(), 1U);
  initialize();
  lay("", 500);
  EXPECT_EQ(fetched(), "NetworkError.invalidHttpStatusCode");
  EXPECT_EQ(fetched(), property.encode()) << "a failure counts as the first fetch";
  EXPECT_EQ(requests().size(), 2U);
  initialize();
  suite_->remove(buttonKey);
  lay("", 500);
  fetched();
  lay(fab);
  EXPECT_EQ(fetched(), property.encode()) << "there is no copy";
  EXPECT_EQ(requests().size(), 4U);
}

TEST_F(EntryViewTest, ACopyThatCannotBeReadCountsAsNone) {
  lay(fab);
  fetched();
  const std::vector<std::string> broken{"",
                                        "[]",
                                        "null",
                                        R"({"iconUrl":"a","color":"b"})",
                                        R"({"iconUrl":"a","color":"b","tooltipMessage":null})",
                                        R"({"iconUrl":1,"color":"b","tooltipMessage":"c"})",
                                        "\xff"};
  for (const auto& json : broken) {
    keep(json);
    lay(fab);
    EXPECT_EQ(fetched(), property.encode());
  }
  suite_->set(buttonKey, std::string(greenLook));
  lay(fab);
  EXPECT_EQ(fetched(), property.encode()) << "a text is no data";
  EXPECT_EQ(requests().size(), 2 + broken.size());
}

TEST_F(EntryViewTest, EveryFieldOfTheReplyIsRequired) {
  const auto reply = Json::parse(fab);
  for (const auto* const field : {"icon", "color", "tool_tip"}) {
    const std::vector<Json> values{nullptr, 1, 1e308, true, Json::array(), Json::object()};
    std::vector<Json> replies(values.size() + 1, reply);
    for (std::size_t i = 0; i < values.size(); ++i) replies[i][field] = values[i];
    replies.back().erase(field);
    for (const auto& each : replies) {
      initialize();
      lay(each.dump());
      EXPECT_THAT(fetched(), testing::StartsWith("DecodingError.")) << each;
    }
  }
  EXPECT_FALSE(suite_->data(buttonKey)) << "nothing is stored";
  auto huge = reply;
  huge["color"] = huge["icon"] = huge["tool_tip"] = std::string(std::size_t{1} << 20, 'x');
  initialize();
  lay(huge.dump());
  const auto button = CampaignFloatingActionButton::create();
  setUser("minji");
  EXPECT_EQ(button->tooltipView->state.value().text.size(), std::size_t{1} << 20);
}

}  // namespace
}  // namespace orrelo::test
