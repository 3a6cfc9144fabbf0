#include "campaign/referral/ReferralCampaignView.h"

#include "events/UserEventTracker.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

#include <utility>
#include <vector>

namespace orrelo {
namespace {

bool intersects(const Rect& a, const Rect& b) {
  const auto overlaps = [](double start, double length, double otherStart, double otherLength) {
    return length > 0.0 && otherLength > 0.0 && start < otherStart + otherLength &&
           otherStart < start + length;
  };
  return overlaps(a.x, a.width, b.x, b.width) && overlaps(a.y, a.height, b.y, b.height);
}

}  // namespace

ReferralCampaignView::ReferralCampaignView(std::optional<ReferralCampaign> campaign, const Color& brand)
    : referralCampaign(std::move(campaign)),
      brandColor(brand),
      copyTitle(referralCampaign ? referralCampaign->buttonText : "초대 코드 복사하기"),
      joinedCount(std::to_string(referralCampaign ? referralCampaign->cumulativeCount : 0) + "명"),
      noticeView(std::make_shared<CampaignNoticeView>(referralCampaign ? referralCampaign->notice.messages
                                                                       : std::vector<std::string>())) {
  if (!referralCampaign) return;
  const auto& info = referralCampaign->campaignInfo;
  infoView->configure({info.firstTitle, info.secondTitle, "", info.guideMessage});
}

void ReferralCampaignView::copyCode() {
  if (!referralCampaign) return;
  Platform::current().application->setPasteboard(referralCampaign->code);
  toastLayer->showToast("초대 코드가 복사되었습니다", Color());
  UserEventTracker::track(UserEventName::referralCopyCodeButtonClick);
}

void ReferralCampaignView::shareReferralMessage() {
  if (!referralCampaign) return;
  Platform::current().application->share(referralCampaign->referralMessage);
  UserEventTracker::track(UserEventName::referralSharingButtonClick);
}

void ReferralCampaignView::showReferralViewController() {
  UserEventTracker::track(UserEventName::referralNavigationViewClick);
  if (!referralCampaign) return;
  if (!referralCampaign->navigateEnable) {
    return toastLayer->showToast(referralCampaign->navigateBlockMessage, Color());
  }
  if (const auto tapped = onNavigateViewDidTap) tapped();
}

void ReferralCampaignView::didLayOut(const Rect& navigateView, const Rect& visibleBounds) {
  if (!awaitsNavigateView.value() || !intersects(navigateView, visibleBounds)) return;
  awaitsNavigateView.set(false);
  UserEventTracker::track(UserEventName::referralNavigationViewShow);
}

}  // namespace orrelo
