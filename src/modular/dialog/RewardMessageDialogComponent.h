#pragma once

#include "base/Json.h"
#include "modular/DialogComponent.h"
#include "viewkit/CampaignRewardViewController.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

/// A reward, announced on a card over the whole screen. Closing it loads the campaign anew.
class ORRELO_EXPORT RewardMessageDialogComponent final : public DialogComponent,
                                                         public CampaignRewardViewControllerDelegate {
 public:
  /// Throws a DecodingError: every field is required.
  explicit RewardMessageDialogComponent(const JsonObject& json);

  /// Refused where the screen presents something already: of two rewards the first alone is seen.
  void show(ORLUIViewController& viewController) override;
  void didClose() override;

  const std::string title;
  const std::string body;
  const std::string buttonText;
  const std::string color;
};

}  // namespace orrelo
