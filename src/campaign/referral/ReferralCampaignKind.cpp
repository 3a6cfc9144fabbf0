#include "campaign/referral/ReferralCampaignKind.h"

#include "campaign/CampaignScreen.h"
#include "campaign/referral/ReferralCampaignView.h"

#include <utility>

namespace orrelo {

ReferralCampaign ReferralCampaignKind::map(Detail&& dto, Campaign&) {
  return {
      .campaignInfo = {std::move(dto.firstTitle), std::move(dto.secondTitle), "", std::nullopt},
      .code = std::move(dto.code),
      .codeDescription = std::move(dto.codeDescription),
      .buttonText = std::move(dto.buttonText),
      .buttonGuideMessage = std::move(dto.guideMessage),
      .navigateEnable = dto.navigateEnabled,
      .navigateBlockMessage = std::move(dto.errorMessage),
      .referralMessage = std::move(dto.referralMessage),
      .notice = {std::move(dto.notice)},
      .primaryColor = Color::fromHex(dto.color),
      .secondaryColor = Color::fromHex(dto.highlightColor),
      .cumulativeCount = dto.currentRegistered,
      .referral = {std::move(dto.verificationUrl), std::move(dto.authorizationUrl)},
  };
}

void ReferralCampaignKind::show(const ReferralCampaign& referral, const BrandedCampaign& element,
                                const std::shared_ptr<CampaignScreen>& screen) {
  const auto page = std::make_shared<ReferralCampaignView>(referral, element.primary);
  page->onNavigateViewDidTap = [weak = std::weak_ptr(screen)] {
    if (const auto shown = weak.lock()) shown->route(Page::Fixed::referral);
  };
  screen->show(page);
}

}  // namespace orrelo
