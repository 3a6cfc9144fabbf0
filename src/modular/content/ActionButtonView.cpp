#include "modular/content/ActionButtonView.h"

#include "events/UserEventTracker.h"
#include "viewkit/legibility.h"

namespace orrelo {
namespace {

// The same for every colour of the page, unlike the disabled buttons of other screens.
constexpr Color disabledFill{0.945, 0.949, 0.953, 1.0};
constexpr Color disabledTitleColor{0.582, 0.588, 0.592, 1.0};

}  // namespace

Color ActionButtonView::fill() const {
  return content.isEnabled ? content.color : disabledFill;
}

Color ActionButtonView::titleColor() const {
  return content.isEnabled ? textColorOn(content.color) : disabledTitleColor;
}

void ActionButtonView::onClick() const {
  if (!content.isEnabled) return;
  if (const auto component = delegate.lock()) component->send({Action::WithUrl{content.actionUrl}});
  UserEventTracker::track(UserEventName::campaignParticipateButtonClick);
}

}  // namespace orrelo
