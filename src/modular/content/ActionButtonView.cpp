#include "modular/content/ActionButtonView.h"

#include "events/UserEventTracker.h"
#include "viewkit/legibility.h"

namespace orrelo {

Color ActionButtonView::fill() const {
  return content.isEnabled ? content.color : Color{0.945, 0.949, 0.953, 1.0};
}

Color ActionButtonView::titleColor() const {
  return content.isEnabled ? textColorOn(content.color) : Color{0.582, 0.588, 0.592, 1.0};
}

void ActionButtonView::onClick() const {
  if (!content.isEnabled) return;
  if (const auto component = delegate.lock()) component->send({Action::WithUrl{content.actionUrl}});
  UserEventTracker::track(UserEventName::campaignParticipateButtonClick);
}

}  // namespace orrelo
