#pragma once

#include "kit/CampaignComponent.h"
#include "kit/ConfigComponent.h"
#include "kit/EventComponent.h"
#include "kit/PageComponent.h"
#include "ui/RunningKit.h"

#include <orrelo/ORLConfig.h>

#include <memory>
#include <string>

namespace orrelo {

/// The tree: every feature's component, built once and in order, on the caller's thread. Some start
/// background work as they are built; that work touches only what stands by then.
class OrreloComponent {
 public:
  /// `baseUrl` ends in "/orreloservice/"; `storeUrl` is where the store's lookup is asked. Stops the process
  /// where the app key can name no suite.
  OrreloComponent(const ORLConfig& config, const std::string& baseUrl, const std::string& storeUrl);

  const ConfigComponent& configComponent() const { return *configComponent_; }
  const PageComponent& pageComponent() const { return *pageComponent_; }
  const CampaignComponent& campaignComponent() const { return *campaignComponent_; }
  const EventComponent& eventComponent() const { return *eventComponent_; }

  /// What features ask of it while it is the one in use.
  RunningKit runningKit() const;

 private:
  std::unique_ptr<ConfigComponent> configComponent_;
  std::unique_ptr<PageComponent> pageComponent_;
  std::unique_ptr<CampaignComponent> campaignComponent_;
  std::unique_ptr<EventComponent> eventComponent_;
};

}  // namespace orrelo
