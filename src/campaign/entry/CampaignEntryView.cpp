#include "campaign/entry/CampaignEntryView.h"

#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "ui/KeyWindow.h"
#include "ui/RunningKit.h"
#include "ui/followOnMain.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

namespace orrelo {
namespace {

void report(UserEventName event, const std::optional<std::string>& entryName) {
  if (entryName) UserEventTracker::track(event, {{UserEventValueKey::campaignEntryPointName, *entryName}});
}

}  // namespace

std::shared_ptr<CampaignEntryView> CampaignEntryView::create() {
  const std::shared_ptr<CampaignEntryView> view(new CampaignEntryView);
  // The user is read after the subscription, so that no change between the two is lost.
  if (view->start() && currentUserId()) view->state_.set({1.0, std::nullopt, 0});
  return view;
}

bool CampaignEntryView::start() {
  if (!RunningKit::isInitialized("orlInitialize()")) return false;
  navigator_ = RunningKit::current()->campaignNavigator;
  const auto isSignedIn = userIdStream().asObservable().map(
      [](const std::optional<std::string>& userId) { return userId.has_value(); });
  followOnMain(isSignedIn, std::static_pointer_cast<CampaignEntryView>(shared_from_this()), disposeBag_,
               &CampaignEntryView::setSignedIn,
               [](CampaignEntryView& view, const Error&) { view.setAlpha(0.0, false); });
  return true;
}

void CampaignEntryView::setSignedIn(bool isSignedIn) {
  if (isSignedIn) report(UserEventName::campaignEntryPointShow, entryName);
  setAlpha(isSignedIn ? 1.0 : 0.0, true);
}

void CampaignEntryView::setAlpha(double alpha, bool animated) {
  State next{alpha, std::nullopt, state().fadeCount + 1};
  if (animated && !Platform::current().application->prefersReducedMotion()) {
    next.fade = Animation{
        .from = state().alpha, .to = alpha, .duration = fadeDuration, .curve = Animation::Curve::easeOut};
  }
  state_.set(next);
}

void CampaignEntryView::orlHandleTapGesture(const std::shared_ptr<ViewController>& root) const {
  if (state().alpha == 0.0) return;
  const auto navigator = navigator_;  // the host's delegate may destroy this view
  report(UserEventName::campaignEntryPointClick, entryName);
  const auto window = root ? root : keyWindowRootViewController();
  if (navigator && window) navigator->showHome(window->topmost(), currentUserId());
}

}  // namespace orrelo
