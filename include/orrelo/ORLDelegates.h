#pragma once

#include <orrelo/Export.h>
#include <orrelo/ORLUserEvent.h>

#include <memory>

namespace orrelo {

class ViewController;

/// Hears what the user does on the kit's screens. The kit holds it weakly.
class ORRELO_EXPORT ORLUserEventDelegate {
 public:
  virtual ~ORLUserEventDelegate() = default;

  /// On the thread of the screen that reports it: the main thread.
  virtual void userEventDidOccur(const ORLUserEvent& event) = 0;
};

/// Takes over when the user follows an opt-in marketing campaign. The kit holds it weakly.
class ORRELO_EXPORT ORLOptInMarketingCampaignDelegate {
 public:
  virtual ~ORLOptInMarketingCampaignDelegate() = default;

  /// On the main thread, with the campaign's screen.
  virtual void onMoveButtonTapped(const std::shared_ptr<ViewController>& viewController) = 0;
};

}  // namespace orrelo
