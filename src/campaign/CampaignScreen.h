#pragma once

#include "campaign/CampaignActionView.h"
#include "campaign/CampaignViewModel.h"
#include "modular/ModularCampaignView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// The operations of the screen that a kind of campaign uses to show itself. Main thread.
class ORRELO_EXPORT CampaignScreen : public CampaignActionViewDelegate, public ModularCampaignViewDelegate {
 public:
  /// Replaces the displayed page.
  virtual void show(const std::shared_ptr<View>& content) = 0;
  /// Removes the page and shows an error, for a campaign that this build cannot show.
  virtual void showError(OrreloError reason) = 0;
  /// False if the screen was removed before its reply arrived. A dialog must not be presented then.
  virtual bool isAttached() const = 0;
  virtual std::shared_ptr<ORLUIViewController> viewController() = 0;
  virtual const CampaignViewModel& model() const = 0;
};

}  // namespace orrelo
