#include "modular/content/ActionButtonView.h"

#include "events/UserEventTracker.h"

namespace orrelo {

void ActionButtonView::onClick() const {
  if (!content.isEnabled) return;
  if (const auto component = delegate.lock()) component->send({Action::WithUrl{content.actionUrl}});
  UserEventTracker::track(UserEventName::campaignParticipateButtonClick);
}

}  // namespace orrelo
