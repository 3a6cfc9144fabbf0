#pragma once

#include <orrelo/Export.h>
#include <orrelo/ORLUserEvent.h>

#include <memory>

namespace orrelo {

class ViewController;

/// Receives the user's actions on the kit's screens. The kit keeps a weak reference to it.
class ORRELO_EXPORT ORLUserEventDelegate {
 public:
  virtual ~ORLUserEventDelegate() = default;

  /// Called on the main thread.
  virtual void userEventDidOccur(const ORLUserEvent& event) = 0;
};

/// Handles the button of an opt-in marketing campaign. The kit keeps a weak reference to it.
class ORRELO_EXPORT ORLOptInMarketingCampaignDelegate {
 public:
  virtual ~ORLOptInMarketingCampaignDelegate() = default;

  /// Called on the main thread with the campaign's screen.
  virtual void onMoveButtonTapped(const std::shared_ptr<ViewController>& viewController) = 0;
};

}  // namespace orrelo
