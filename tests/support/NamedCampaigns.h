#pragma once

#include "ui/CampaignNavigator.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace orrelo::test {

/// Stands for the screen of a campaign.
class NamedScreen final : public ViewController {
 public:
  explicit NamedScreen(std::string id) : campaignId(std::move(id)) {}
  std::string_view kind() const override { return "NamedScreen"; }
  const std::string campaignId;
};

/// Opens named screens in place of campaigns.
class NamedCampaigns final : public CampaignNavigator, public CampaignViewControllerFactory {
 public:
  void showHome(const std::shared_ptr<ViewController>&, const std::optional<std::string>&) override {}
  std::shared_ptr<CampaignViewControllerFactory> campaignViewControllerFactory() const override {
    return std::make_shared<NamedCampaigns>();
  }
  std::shared_ptr<ViewController> make(const std::string& id) const override {
    return std::make_shared<NamedScreen>(id);
  }
  std::shared_ptr<ViewController> make(ORLCampaignType) const override { return nullptr; }
};

}  // namespace orrelo::test
