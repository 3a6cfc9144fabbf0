#include "campaign/stamp/StampCampaign.h"

namespace orrelo {

StampCampaignComponent stampCampaignComponent(std::string_view word) {
  if (word == "information") return StampCampaignComponent::information;
  if (word == "main_image") return StampCampaignComponent::mainImage;
  if (word == "sub_image") return StampCampaignComponent::subImage;
  if (word == "notice") return StampCampaignComponent::notice;
  if (word == "stamp") return StampCampaignComponent::stamp;
  return StampCampaignComponent::unknown;
}

}  // namespace orrelo
