#include "CampaignViewModelFixture.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CampaignViewModelTest, TheFirstTriggerIsNotLostThoughTheSubscriptionBeginsElsewhere) {
  appear();
  EXPECT_THAT(paths(), IsEmpty());
  byId_.onNext({"c-1", "user-1"});  // before the background scheduler has run
  platform_.loop->run();
  EXPECT_THAT(paths(), ElementsAre("/sdk/app/campaigns/c-1"));
  EXPECT_EQ(requests()[0].headers.at("buid"), "user-1");
  answer(attendanceJson());
  EXPECT_EQ(campaigns_->elements, std::vector{branded(mapped(attendanceJson()))});
  EXPECT_EQ(campaigns_->end, "");
  EXPECT_THAT(loading_->elements, ElementsAre(false, true, false));
}

TEST_F(CampaignViewModelTest, TheFirstCampaignOfATypeIsFetchedAgainById) {
  auto second = attendanceJson();
  second["id"] = "c-second";
  appear();
  load(ORLCampaignType::attendance);
  answer(Json{resultJson(), attendanceJson(), second});
  EXPECT_THAT(paths(), ElementsAre("/sdk/app/campaigns", "/sdk/app/campaigns/c-attendance-11"));
  EXPECT_THAT(campaigns_->elements, IsEmpty());
  answer(second);
  EXPECT_EQ(campaigns_->elements, std::vector{branded(mapped(second))});
}

TEST_F(CampaignViewModelTest, ACampaignThatDoesNotExistEndsTheScreen) {
  appear();
  participate("/attend");
  expectEnded("OrreloError.campaignNotExists");
  EXPECT_THAT(requests(), IsEmpty());

  appear();
  load(ORLCampaignType::scratchLottery);
  answer(Json{resultJson(), attendanceJson(), unknownJson()});
  expectEnded("OrreloError.campaignNotExists");
}

TEST_F(CampaignViewModelTest, NobodyIsSignedInAndNothingIsAsked) {
  const auto expectRefusal = [this](const std::function<void()>& trigger) {
    appear();
    trigger();
    expectEnded("OrreloError.notLoggedIn");
  };
  expectRefusal([this] { load("c-1", std::nullopt); });
  expectRefusal([this] { load(ORLCampaignType::attendance, std::nullopt); });
  expectRefusal([this] { participate("/attend", std::nullopt); });
  EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(CampaignViewModelTest, ParticipationReplacesThePageOfTheCampaignShown) {
  appear();
  load("c-1");
  answer(attendanceJson());
  participate("/campaigns/c-attendance-11/attend");
  EXPECT_EQ(paths().back(), "/sdk/app/campaigns/c-attendance-11/attend");
  answer(Json::parse(storedReply("participation.json")));
  auto whole = attendanceJson();
  whole["page"] = Json::parse(storedReply("participation.json"));
  ASSERT_EQ(campaigns_->elements.size(), 2U);
  EXPECT_EQ(campaigns_->elements[1], branded(mapped(whole)));
  EXPECT_THAT(loading_->elements, ElementsAre(false, true, false, true, false));

  participate("/campaigns/c-attendance-11/attend");
  platform_.session->answer(ScriptedURLSession::reply(409, "{}"));
  platform_.loop->run();
  expectEnded("NetworkError.invalidHttpStatusCode");
}

TEST_F(CampaignViewModelTest, AnUnknownKindInvitesToUpdate) {
  appear();
  load("c-new");
  answer(unknownJson());
  EXPECT_THAT(campaigns_->elements, IsEmpty());
  EXPECT_TRUE(loading_->elements.back());
  answer({{"resultCount", 1}, {"results", {{{"bundleId", "com.example.shop"}, {"trackId", 7}}}}});
  auto expected = mapped(unknownJson());
  expected.type = InduceUpdateCampaign{"itms-apps://itunes.apple.com/app/id7"};
  EXPECT_EQ(campaigns_->elements, std::vector{branded(expected)});
  EXPECT_FALSE(loading_->elements.back());

  appear();
  load("c-new");
  answer(unknownJson());
  platform_.session->answer(ScriptedURLSession::failure(URLError::cannotFindHost));
  platform_.loop->run();
  expectEnded("URLError.cannotFindHost");
}

TEST_F(CampaignViewModelTest, AVisitIsReportedOnceForACampaign) {
  const auto attendance = mapped(attendanceJson());
  const auto result = mapped(resultJson());
  auto changed = attendance;
  changed.type = UnknownCampaign{};
  for (const auto& each : {attendance, attendance, changed, result, result, attendance}) {
    viewModel_->visit(each);
  }
  ASSERT_EQ(visits_->events.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(visits_->events[i].name, "ol_visit");
    EXPECT_EQ(visits_->events[i].values, (EventValues{{"page_name", i == 1 ? "result" : "attendance"}}));
  }
}

TEST_F(CampaignViewModelTest, LettingGoOfTheScreenCancelsAndOfTheViewModelEnds) {
  appear();
  load("c-1");
  campaigns_->subscription.dispose();
  EXPECT_EQ(platform_.session->cancelled, 1);
  EXPECT_FALSE(byId_.hasObservers());

  appear();
  viewModel_.reset();
  load("c-1");
  EXPECT_EQ(campaigns_->end, "OrreloError.referenceDeallocation");
}

}  // namespace
}  // namespace orrelo::test
