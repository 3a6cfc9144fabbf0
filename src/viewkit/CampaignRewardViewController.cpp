#include "viewkit/CampaignRewardViewController.h"

#include "events/UserEventTracker.h"

namespace orrelo {

void CampaignRewardViewController::viewDidLoad() {
  UserEventTracker::track(UserEventName::rewardPopUpShow);
}

void CampaignRewardViewController::close() {
  const auto keep = shared_from_this();
  dismiss(false);
  if (const auto listener = delegate.lock()) listener->didClose();
}

}  // namespace orrelo
