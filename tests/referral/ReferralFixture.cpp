#include "ReferralFixture.h"

#include "model/UserManager.h"

#include <fstream>

namespace orrelo::test {

ReferralFixture::ReferralFixture() {
  setUserEventDelegate(reports_);
  setCurrentUserId("minji");
  list_ = ScriptedURLSession::reply(200, campaigns().dump());
  platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
    return request.url.path().ends_with("/campaigns") ? list_ : std::nullopt;
  };
  const NetworkConfig networkConfig{"https://api.example/sdk/shop",
                                    {{"Kelso-UUID", "u"}, {"buid", "nobody"}}};
  const auto client = std::make_shared<HTTPClientImpl>();
  const auto scheduler =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInteractive);
  const auto repository =
      std::make_shared<CampaignRepositoryImpl>(CampaignRemoteDataSource(networkConfig, client, scheduler),
                                               CampaignLocalDataSource(platform_.defaults->standard()));
  service_ = std::make_shared<ReferralServiceImpl>(
      networkConfig, std::make_shared<FetchReferralUseCaseImpl>(FetchCampaignsUseCase(repository)), client,
      scheduler);
}

ReferralFixture::~ReferralFixture() {
  setUserEventDelegate(nullptr);
  setCurrentUserId(std::nullopt);
}

Json ReferralFixture::campaigns() {
  const auto stored = [](const std::string& name) {
    std::ifstream file(std::string(ORRELO_TEST_DATA) + "/" + name);
    return Json::parse(file);
  };
  auto second = stored("referral.json");
  second["page"]["page_detail"]["input_url"] = "/second";
  return Json::array({stored("marketing.json"), stored("referral.json"), second});
}

std::string ReferralFixture::authorization(const std::string& key, const std::optional<Json>& value) {
  Json reply{
      {"result", true},
      {"message", nullptr},
      {"reward_message", {{"title", "축하해요"}, {"body", "500P를 받았어요"}, {"button_text", "확인"}}}};
  const Json::json_pointer place("/" + key);
  reply[place] = value.value_or(nullptr);
  if (!value) reply[place.parent_pointer()].erase(place.back());
  return reply.dump();
}

std::string ReferralFixture::verification(bool isVerified, const Json& message) {
  return Json{{"result", isVerified}, {"message", message}}.dump();
}

void ReferralFixture::answer(int status, const std::string& body) {
  platform_.session->answer(ScriptedURLSession::reply(status, body));
  platform_.loop->run();
}

}  // namespace orrelo::test
