#include "CampaignFixture.h"
#include "campaign/FetchUpdateUrlUseCase.h"
#include "campaign/ItunesAPIService.h"
#include "support/FixedConfig.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

std::shared_ptr<FixedConfig> storeConfig() {
  auto config = Config::defaults();
  config.appStoreUrl = "https://store.example/app";
  return std::make_shared<FixedConfig>(config);
}

class FetchUpdateUrlTest : public CampaignFixture {
 protected:
  std::shared_ptr<Heard<std::string>> fetch() { return listen(useCase_.fetch()); }

  FetchUpdateUrlUseCaseImpl useCase_{std::make_shared<ItunesAPIServiceImpl>(client_, scheduler()),
                                     storeConfig()};
};

TEST_F(FetchUpdateUrlTest, TheStoresPageOfThisApplicationAndOfNoOther) {
  lay(R"({"resultCount":3,"results":[{"bundleId":"com.example.Shop","trackId":1},
          {"bundleId":"com.example.shop","trackId":9007199254740993},
          {"bundleId":"com.example.shop","trackId":3}]})");
  EXPECT_THAT(fetch()->elements, ElementsAre("itms-apps://itunes.apple.com/app/id9007199254740993"));
  ASSERT_EQ(requests().size(), 1U);
  EXPECT_EQ(requests()[0].url.text(), "http://itunes.apple.com/lookup?bundleId=com.example.shop");
  EXPECT_EQ(requests()[0].method, "GET");
  EXPECT_THAT(requests()[0].headers, IsEmpty());
}

TEST_F(FetchUpdateUrlTest, AnApplicationThatTheStoreDoesNotKnowHasTheConfiguredLink) {
  lay(R"({"resultCount":0,"results":[]})");
  EXPECT_THAT(fetch()->elements, ElementsAre("https://store.example/app"));
  lay(R"({"resultCount":1,"results":[{"bundleId":"com.example","trackId":1}]})");
  EXPECT_THAT(fetch()->elements, ElementsAre("https://store.example/app"));

  auto nameless = Platform::current();
  nameless.mainBundle = std::make_shared<FixedBundle>(std::map<std::string, std::string>{});
  Platform::install(std::move(nameless));
  EXPECT_THAT(fetch()->elements, ElementsAre("https://store.example/app"));
  EXPECT_EQ(requests().size(), 2U) << "no lookup without an identifier";
}

TEST_F(FetchUpdateUrlTest, ALookupThatFailsFailsTheStream) {
  lay("", 503);
  EXPECT_EQ(fetch()->end, "NetworkError.invalidHttpStatusCode");
  for (const auto* const body :
       {R"({"results":[]})", R"({"resultCount":0})",
        R"({"resultCount":1,"results":[{"bundleId":"com.example.shop"}]})",
        R"({"resultCount":1,"results":[{"trackId":1}]})",
        R"({"resultCount":1,"results":[{"bundleId":"com.example.shop","trackId":1.5}]})"}) {
    lay(body);
    const auto heard = fetch();
    EXPECT_THAT(heard->end, StartsWith("DecodingError")) << body;
    EXPECT_THAT(heard->elements, IsEmpty());
  }
}

}  // namespace
}  // namespace orrelo::test
