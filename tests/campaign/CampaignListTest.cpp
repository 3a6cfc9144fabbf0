#include "CampaignFixture.h"
#include "base/Logger.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/list/CampaignListViewController.h"
#include "model/UserManager.h"
#include "support/Reports.h"
#include "ui/NavigationController.h"

#include <gmock/gmock.h>
#include <utility>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

/// Shows its child as a part of itself, and keeps what it was told.
class Home final : public ViewController, public CampaignListViewControllerDelegate {
 public:
  std::string_view kind() const override { return "Home"; }
  void add(const std::shared_ptr<ViewController>& child) { addChild(child); }
  void startActivityIndicator() override { told.push_back("start"); }
  void stopActivityIndicator() override { told.push_back("stop"); }
  void showListError(const Error& error) override { told.push_back(error.description()); }
  void hideListError() override { told.push_back("hide"); }

  Lines told;
};

/// Its screens bear the campaign's id as their title.
class Screens final : public CampaignViewControllerFactory {
 public:
  std::shared_ptr<ViewController> make(const std::string& id) const override {
    auto screen = std::make_shared<HostViewController>();
    screen->setTitle(id);
    return screen;
  }
  std::shared_ptr<ViewController> make(ORLCampaignType) const override { return nullptr; }
};

class CampaignListTest : public CampaignFixture {
 protected:
  CampaignListTest() {
    setUserEventDelegate(reports_);
    setCurrentUserId("minji");
    home_->add(list_);
    list_->delegate = home_;
  }
  ~CampaignListTest() override {
    setCurrentUserId(std::nullopt);
    setUserEventDelegate(nullptr);
  }

  static std::string reply(const Lines& ids) {
    Json campaigns = Json::array();
    for (const auto& id : ids) {
      auto campaign = attendanceJson();
      campaign["id"] = id;
      campaigns.push_back(campaign);
    }
    return campaigns.dump();
  }
  void load(const Lines& ids) {
    lay(reply(ids));
    list_->refresh();
    platform_.loop->run();
  }
  /// Appears for the first time, with this list.
  void appear(const Lines& ids) {
    lay(reply(ids));
    home_->appear(false);
    platform_.loop->run();
  }
  void setInSight(const std::vector<std::size_t>& rows) {
    const auto cells = list_->state().cells;
    for (std::size_t row = 0; row < cells.size(); ++row) {
      list_->setInSight(cells[row], std::find(rows.begin(), rows.end(), row) != rows.end());
    }
  }
  Lines takeReports() {
    Lines lines;
    for (const auto& event : std::exchange(reports_->events, {})) {
      lines.push_back(event.name + " " + std::get<std::string>(event.values->at("campaign_id").variant()));
    }
    return lines;
  }
  Lines takeTold() { return std::exchange(home_->told, {}); }
  static Lines numbered(int count) {
    Lines ids;
    for (int i = 0; i < count; ++i) ids.push_back(std::to_string(i));
    return ids;
  }

  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<CampaignListViewModel> viewModel_ =
      CampaignListViewModel::create(FetchCampaignsUseCase(repository_));
  std::shared_ptr<CampaignListViewController> list_ =
      CampaignListViewController::create(viewModel_, std::make_shared<Screens>());
  std::shared_ptr<Home> home_ = std::make_shared<Home>();
};

TEST_F(CampaignListTest, EachAppearanceLoadsForTheUserOfThatMoment) {
  appear({"a", "b"});
  EXPECT_THAT(takeTold(), ElementsAre("start", "hide", "stop"));
  ASSERT_EQ(list_->state().cells.size(), 2U);
  EXPECT_EQ(list_->state().cells[1]->campaignId, "b");
  home_->disappear(false);
  setCurrentUserId("jun");
  appear({});
  EXPECT_THAT(takeTold(), ElementsAre("start", "OrreloError.emptyCampaigns", "stop"));
  EXPECT_THAT(list_->state().cells, IsEmpty());
  EXPECT_EQ(platform_.session->requestsTo("/campaigns").back().headers.at("buid"), "jun");
}

TEST_F(CampaignListTest, AFailureIsShownAndTheNextLoadIsNotAffected) {
  appear({"a"});
  takeTold();
  lay("", 500);
  list_->refresh();
  platform_.loop->run();
  EXPECT_THAT(takeTold(), ElementsAre("start", "stop", "NetworkError.invalidHttpStatusCode"));
  EXPECT_EQ(list_->state().cells.size(), 1U) << "an error stands over the rows";
  setCurrentUserId(std::nullopt);
  list_->refresh();
  platform_.loop->run();
  EXPECT_THAT(takeTold(), ElementsAre("start", "stop", "OrreloError.notLoggedIn"));
  setCurrentUserId("minji");
  viewModel_.reset();
  load({"a"});
  EXPECT_THAT(takeTold(), ElementsAre("start", "hide", "stop")) << "the list keeps its model";
}

TEST_F(CampaignListTest, ANewerLoadReplacesOneThatStillRuns) {
  home_->appear(false);
  platform_.loop->run();
  load({"new"});
  EXPECT_EQ(platform_.session->cancelled, 1);
  EXPECT_EQ(list_->state().cells.at(0)->campaignId, "new");
}

TEST_F(CampaignListTest, CellsAreReportedAsTheyComeIntoSightAndAfterEachLoad) {
  appear({"a", "b", "c"});
  setInSight({0, 1});
  EXPECT_THAT(takeReports(), IsEmpty()) << "their places are known only after the layout";
  list_->didLayOut();
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_list_item_show a", "ol_campaign_list_item_show b"));
  setInSight({1, 2});
  setInSight({0, 1});
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_list_item_show c", "ol_campaign_list_item_show a"));
  const auto former = list_->state().cells;
  load({"a", "b", "c"});
  EXPECT_EQ(list_->state().cells, former) << "equal campaigns keep their cells";
  list_->didLayOut();
  list_->didLayOut();
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_list_item_show a", "ol_campaign_list_item_show b"));
  home_->disappear(false);
  load({"a"});
  list_->didLayOut();
  EXPECT_THAT(takeReports(), IsEmpty()) << "another screen covers the list";
}

TEST_F(CampaignListTest, ALoadKeepsTheCellsOfCampaignsThatStayInOrder) {
  appear({"a", "b", "c", "a"});
  const auto former = list_->state().cells;
  load({"b", "x", "a", "c"});
  const auto& cells = list_->state().cells;
  EXPECT_EQ(cells[0], former[1]);
  EXPECT_EQ(cells[2], former[3]);
  EXPECT_EQ(std::count(former.begin(), former.end(), cells[3]), 0) << "c has moved behind a";
}

TEST_F(CampaignListTest, ALongListMakesItsCellsAsTheyAreNeeded) {
  appear(numbered(50));
  constexpr auto page = CampaignListViewController::pageSize;
  EXPECT_EQ(list_->state().cells.size(), page);
  setInSight({page / 2 - 1});
  EXPECT_EQ(list_->state().cells.size(), page);
  setInSight({page - 1});
  EXPECT_EQ(list_->state().cells.size(), 2 * page);
  load(numbered(60));
  EXPECT_EQ(list_->state().cells.size(), 2 * page) << "a load keeps what was seen";
  setInSight({2 * page - 1});
  EXPECT_EQ(list_->state().cells.size(), 60U);
}

TEST_F(CampaignListTest, ASelectedCampaignIsPresentedOrPushed) {
  appear({"a"});
  list_->didSelect(*list_->state().cells[0]);
  EXPECT_THAT(takeReports(), ElementsAre("ol_campaign_list_item_click a"));
  ASSERT_TRUE(home_->presentedViewController());
  EXPECT_EQ(home_->presentedViewController()->title(), "a");
  home_->dismiss(false);
  const auto navigation = NavigationController::create(home_);
  list_->didSelect(*list_->state().cells[0]);
  EXPECT_EQ(navigation->topViewController()->title(), "a");
}

TEST_F(CampaignListTest, WithoutAModelNothingLoadsAndWithoutAFactoryNothingOpens) {
  const auto inert = CampaignListViewController::create(nullptr, nullptr);
  const auto screen = std::make_shared<Home>();
  screen->add(inert);
  inert->delegate = screen;
  screen->appear(false);
  inert->refresh();
  platform_.loop->run();
  EXPECT_THAT(screen->told, IsEmpty());
  EXPECT_THAT(requests(), IsEmpty());
  Lines lines;
  setLogSink([&](std::string_view line) { lines.emplace_back(line); });
  inert->didSelect(CampaignViewCell(mapped(attendanceJson())));
  setLogSink(nullptr, false);
  EXPECT_THAT(lines, testing::Contains(testing::EndsWith("CampaignViewControllerFactory is not injected")));
  EXPECT_FALSE(screen->presentedViewController());
}

TEST_F(CampaignListTest, AModelThatIsGoneFailsTheLoad) {
  const reactive::PublishSubject<std::optional<std::string>> trigger;
  const auto states = listenLater(viewModel_->transform({trigger.asObservable()}));
  viewModel_.reset();
  home_.reset();
  list_.reset();
  trigger.onNext("minji");
  using ViewModel = CampaignListViewModel;
  EXPECT_THAT(
      states->elements,
      ElementsAre(ViewModel::ViewState(ViewModel::Loading{}),
                  ViewModel::ViewState(ViewModel::Failed{makeError(OrreloError::referenceDeallocation)})));
}

}  // namespace
}  // namespace orrelo::test
