#pragma once

#include "base/Json.h"
#include "modular/DialogComponent.h"
#include "viewkit/CampaignRewardViewController.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// Announces a reward on a card above the whole screen. Closing it reloads the campaign.
class ORRELO_EXPORT RewardMessageDialogComponent final : public DialogComponent,
                                                         public CampaignRewardViewControllerDelegate {
 public:
  /// Throws a DecodingError: every field is required.
  explicit RewardMessageDialogComponent(const JsonObject& json);

  /// Does nothing if the screen already presents another one, so that only the first of two rewards is shown.
  void show(ORLUIViewController& viewController) override;
  void didClose() override;

  const std::string title;
  const std::string body;
  const std::string buttonText;
  const std::string color;
};

}  // namespace orrelo
