#include "CampaignViewModelFixture.h"

#include "campaign/FetchCampaignStateUseCase.h"
#include "campaign/FetchCampaignUseCase.h"
#include "campaign/FetchCampaignsUseCase.h"
#include "campaign/SaveCampaignStateUseCase.h"
#include "support/FixedConfig.h"

namespace orrelo::test {
namespace {

std::shared_ptr<FixedConfig> brandedConfig() {
  auto config = Config::defaults();
  config.brandTheme = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  config.appStoreUrl = "https://store.example/app";
  return std::make_shared<FixedConfig>(config);
}

}  // namespace

CampaignViewModelTest::CampaignViewModelTest()
    : viewModel_(CampaignViewModelImpl::create(
          {FetchCampaignsUseCase(repository_), FetchCampaignUseCase(repository_), brandedConfig(),
           participate_,
           std::make_shared<FetchUpdateUrlUseCaseImpl>(
               std::make_shared<ItunesAPIServiceImpl>(client_, scheduler()), brandedConfig()),
           FetchCampaignStateUseCase(repository_), SaveCampaignStateUseCase(repository_)})) {
  setUserEventDelegate(visits_);
}

CampaignViewModelTest::~CampaignViewModelTest() {
  setUserEventDelegate(nullptr);
}

void CampaignViewModelTest::appear() {
  const auto output =
      viewModel_->transform(byId_.asObservable(), byType_.asObservable(), action_.asObservable());
  const auto background = scheduler(QualityOfService::userInteractive);
  loading_ = listen(output.isLoading.subscribeOn(background));
  // Runs nothing yet: the work of the subscription waits on the background scheduler.
  campaigns_ =
      listenLater(output.campaign.subscribeOn(background).observeOn(reactive::MainScheduler::instance()));
}

void CampaignViewModelTest::load(const std::string& id, std::optional<std::string> user) {
  byId_.onNext({id, std::move(user)});
  platform_.loop->run();
}

void CampaignViewModelTest::load(ORLCampaignType type, std::optional<std::string> user) {
  byType_.onNext({type, std::move(user)});
  platform_.loop->run();
}

void CampaignViewModelTest::participate(const std::string& url, std::optional<std::string> user) {
  action_.onNext({url, std::move(user)});
  platform_.loop->run();
}

void CampaignViewModelTest::answer(const Json& body) {
  platform_.session->answer(ScriptedURLSession::reply(200, body.dump()));
  platform_.loop->run();
}

std::vector<std::string> CampaignViewModelTest::paths() const {
  std::vector<std::string> paths;
  for (const auto& request : requests()) paths.push_back(std::string(request.url.path()));
  return paths;
}

void CampaignViewModelTest::expectEnded(const std::string& error) {
  EXPECT_EQ(campaigns_->end, error);
  EXPECT_FALSE(loading_->elements.back());
  const auto before = requests().size();
  load("c-again");
  load(ORLCampaignType::attendance);
  participate("/again");
  EXPECT_EQ(requests().size(), before);
}

}  // namespace orrelo::test
