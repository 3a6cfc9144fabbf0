#include "campaign/stamp/StampCampaignView.h"

#include "campaign/stamp/StampBoardView.h"
#include "image/ImageView.h"
#include "viewkit/CampaignNoticeView.h"
#include "viewkit/InformationView.h"

#include <algorithm>
#include <optional>
#include <string>

namespace orrelo {
namespace {

std::shared_ptr<View> imageOf(const std::optional<std::string>& url) {
  if (!url) return nullptr;
  const auto view = std::make_shared<AutoLayoutImageView>();
  view->load(*url);
  return view;
}

std::shared_ptr<View> noticeOf(const std::optional<CampaignNotice>& notice) {
  return notice ? std::make_shared<CampaignNoticeView>(notice->messages) : nullptr;
}

// Blocks of these types are shown only once, at their last position in the order.
bool isUnique(StampCampaignComponent component) {
  return component == StampCampaignComponent::mainImage || component == StampCampaignComponent::subImage ||
         component == StampCampaignComponent::stamp;
}

}  // namespace

StampCampaignView::StampCampaignView(const StampCampaign& campaign) {
  const auto& order = campaign.layout.componentOrder;
  for (auto component = order.begin(); component != order.end(); ++component) {
    if (isUnique(*component) && std::find(component + 1, order.end(), *component) != order.end()) continue;
    const auto block = blockOf(*component, campaign);
    if (!block) continue;
    const bool hasMargins = *component == StampCampaignComponent::information;
    stackView->addArrangedSubview(block, hasMargins ? 0.0 : inset);
    stackView->setCustomSpacingAfterLast(spacing);
  }
}

std::shared_ptr<View> StampCampaignView::blockOf(StampCampaignComponent component,
                                                 const StampCampaign& campaign) {
  switch (component) {
    case StampCampaignComponent::information:
      return campaign.info
                 ? std::make_shared<InformationView>(campaign.info->firstTitle, campaign.info->secondTitle,
                                                     campaign.info->guideMessage)
                 : nullptr;
    case StampCampaignComponent::mainImage:
      return imageOf(campaign.mainImageUrl);
    case StampCampaignComponent::subImage:
      return imageOf(campaign.subImageUrl);
    case StampCampaignComponent::notice:
      return noticeOf(campaign.notice);
    case StampCampaignComponent::stamp:
      return std::make_shared<StampBoardView>(campaign.missions, campaign.columnCount);
    case StampCampaignComponent::unknown:
      return nullptr;
  }
  return nullptr;
}

}  // namespace orrelo
