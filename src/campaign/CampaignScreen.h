#pragma once

#include "campaign/CampaignActionView.h"
#include "campaign/CampaignViewModel.h"
#include "modular/ModularCampaignView.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

/// What a kind of campaign asks of the screen that shows it. Main thread.
class ORRELO_EXPORT CampaignScreen : public CampaignActionViewDelegate, public ModularCampaignViewDelegate {
 public:
  /// Replaces the page on the screen.
  virtual void show(const std::shared_ptr<View>& content) = 0;
  /// Takes the page away and says why: for a campaign that this build cannot show.
  virtual void showNothing(OrreloError reason) = 0;
  /// False for a screen that was taken away while its reply was on its way: nobody would see a dialog over
  /// it.
  virtual bool hasPlace() const = 0;
  virtual std::shared_ptr<ORLUIViewController> viewController() = 0;
  virtual const CampaignViewModel& model() const = 0;
};

}  // namespace orrelo
