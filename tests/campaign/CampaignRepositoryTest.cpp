#include "CampaignFixture.h"
#include "campaign/CampaignState.h"
#include "campaign/FetchCampaignStateUseCase.h"
#include "campaign/FetchCampaignUseCase.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/SaveCampaignStateUseCase.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CampaignRepositoryTest : public CampaignFixture {
 protected:
  void expectRequest(const std::string& url) {
    ASSERT_EQ(requests().size(), 1U);
    EXPECT_EQ(requests()[0].url.text(), url);
    EXPECT_EQ(requests()[0].method, "GET");
    EXPECT_EQ(requests()[0].headers, (HTTPHeaders{{"Kelso-UUID", "u"}, {"buid", "user-1"}}));
    EXPECT_EQ(requests()[0].body, std::nullopt);
  }

  FetchCampaignUseCase fetchOne_{repository_};
  FetchCampaignsUseCase fetchAll_{repository_};
  FetchCampaignStateUseCase states_{repository_};
  SaveCampaignStateUseCase save_{repository_};
};

TEST_F(CampaignRepositoryTest, FetchesOneCampaignForTheUserAtEachSubscription) {
  const auto stream = fetchOne_.fetch("c-1", "user-1");
  EXPECT_THAT(requests(), IsEmpty());
  lay(attendanceJson().dump());
  const auto heard = listen(stream);
  expectRequest("https://api.example/sdk/app/campaigns/c-1");
  EXPECT_EQ(heard->elements, std::vector{mapped(attendanceJson())});
  EXPECT_EQ(heard->end, "done");
  listen(stream);
  EXPECT_EQ(requests().size(), 2U);
}

TEST_F(CampaignRepositoryTest, FetchesTheListInTheServicesOrderAndForgetsTheOthers) {
  store(R"([{"campaignId":"gone","popUpDialogIsShown":true},)"
        R"({"campaignId":"c-result-7","popUpDialogIsShown":true},)"
        R"({"campaignId":"c-attendance-11","popUpDialogIsShown":false},)"
        R"({"campaignId":"c-result-7","popUpDialogIsShown":false}])");
  lay(storedReply("list.json"));
  const auto heard = listen(fetchAll_.fetch("user-1"));
  expectRequest("https://api.example/sdk/app/campaigns");
  ASSERT_EQ(heard->elements.size(), 1U);
  EXPECT_EQ(heard->elements[0], (std::vector{mapped(attendanceJson()), mapped(resultJson())}));
  EXPECT_EQ(stored(), R"([{"campaignId":"c-result-7","popUpDialogIsShown":true},)"
                      R"({"campaignId":"c-attendance-11","popUpDialogIsShown":false}])");

  lay("[]");
  EXPECT_THAT(listen(fetchAll_.fetch("user-1"))->elements, ElementsAre(IsEmpty()));
  EXPECT_EQ(stored(), "[]");
}

TEST_F(CampaignRepositoryTest, AListThatFailsForgetsNothing) {
  const std::string before = R"([{"campaignId":"gone","popUpDialogIsShown":true}])";
  store(before);
  lay("[]", 500);
  EXPECT_EQ(listen(fetchAll_.fetch("user-1"))->end, "NetworkError.invalidHttpStatusCode");
  lay(storedReply("list.json").substr(0, 900));
  EXPECT_THAT(listen(fetchAll_.fetch("user-1"))->end, testing::StartsWith("DecodingError.dataCorrupted"));
  platform_.session->lay(ScriptedURLSession::failure(URLError::timedOut));
  EXPECT_THAT(listen(fetchAll_.fetch("user-1"))->end, testing::StartsWith("URLError.timedOut"));
  EXPECT_EQ(stored(), before);
}

TEST_F(CampaignRepositoryTest, ParticipationCallsThePathAsItStandsAndKeepsWhoseItIs) {
  const auto before = mapped(attendanceJson());
  lay(storedReply("participation.json"));
  const auto heard = listen(participate_->participate(before, "/anything//at/all%20", "user-1"));
  expectRequest("https://api.example/sdk/app/anything//at/all%20");
  ASSERT_EQ(heard->elements.size(), 1U);
  auto whole = attendanceJson();
  whole["page"] = Json::parse(storedReply("participation.json"));
  EXPECT_EQ(heard->elements[0], mapped(whole));
  EXPECT_EQ(heard->elements[0].title, std::nullopt);

  const auto refused = listen(participate_->participate(before, " no path", "user-1"));
  EXPECT_EQ(refused->end, "NetworkError.buildURLRequestFailed");
  EXPECT_EQ(requests().size(), 1U);
}

TEST_F(CampaignRepositoryTest, SavingLeavesOneStateACampaignAtTheEnd) {
  EXPECT_THAT(states_.fetch(), IsEmpty());
  save_.save("a", false);
  save_.save("b \"따옴표\"", true);
  save_.save("a", true);
  EXPECT_EQ(stored(), R"([{"campaignId":"b \"따옴표\"","popUpDialogIsShown":true},)"
                      R"({"campaignId":"a","popUpDialogIsShown":true}])");
  EXPECT_EQ(states_.fetch(), (std::vector<CampaignState>{{"b \"따옴표\"", true}, {"a", true}}));
  store(R"([{"campaignId":"a","popUpDialogIsShown":true},{"campaignId":"a","popUpDialogIsShown":false}])");
  save_.save("c", true);
  EXPECT_EQ(states_.fetch(), (std::vector<CampaignState>{{"a", true}, {"c", true}}));
  const auto before = stored();
  save_.save("\xFF", true);
  EXPECT_EQ(stored(), before);
}

TEST_F(CampaignRepositoryTest, UnreadableStatesCountAsNoneAndAreOverwritten) {
  for (const auto* const blob :
       {"", "{}", "[null]", R"([{"campaignId":"a"}])", R"([{"campaignId":5,"popUpDialogIsShown":true}])",
        "[{\"campaignId\":\"\xFF\",\"popUpDialogIsShown\":true}]"}) {
    store(blob);
    EXPECT_THAT(states_.fetch(), IsEmpty()) << blob;
  }
  suite_->set("orrelo_live_campaign_state_array", R"([{"campaignId":"a","popUpDialogIsShown":true}])");
  EXPECT_THAT(states_.fetch(), IsEmpty()) << "a text, not bytes";
  save_.save("a", false);
  EXPECT_EQ(stored(), R"([{"campaignId":"a","popUpDialogIsShown":false}])");
}

}  // namespace
}  // namespace orrelo::test
