#pragma once

#include "CampaignFixture.h"
#include "campaign/CampaignViewModel.h"
#include "reactive/Subjects.h"
#include "support/Reports.h"

namespace orrelo::test {

/// A view model over the scripted network, and what it emits.
class CampaignViewModelTest : public CampaignFixture {
 protected:
  CampaignViewModelTest();
  ~CampaignViewModelTest() override;

  /// Subscribes as the screen does when it loads.
  void appear();
  void load(const std::string& id, std::optional<std::string> user = "user-1");
  void load(ORLCampaignType type, std::optional<std::string> user = "user-1");
  void participate(const std::string& url, std::optional<std::string> user = "user-1");
  void answer(const Json& body);
  std::vector<std::string> paths() const;
  static BrandedCampaign branded(Campaign campaign) {
    return {std::move(campaign), {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  }
  /// The stream has ended with `error`, and later triggers do nothing.
  void expectEnded(const std::string& error);

  std::shared_ptr<Reports> visits_ = std::make_shared<Reports>();
  std::shared_ptr<CampaignViewModelImpl> viewModel_;
  reactive::PublishSubject<CampaignTrigger<std::string>> byId_;
  reactive::PublishSubject<CampaignTrigger<ORLCampaignType>> byType_;
  reactive::PublishSubject<CampaignTrigger<std::string>> action_;
  std::shared_ptr<Heard<BrandedCampaign>> campaigns_;
  std::shared_ptr<Heard<bool>> loading_;
};

}  // namespace orrelo::test
