#include "campaign/stamp/StampCampaign.h"

#include "base/EnumTexts.h"

namespace orrelo {
namespace {

constexpr EnumTexts<StampCampaignComponent, 6> components({
    {StampCampaignComponent::information, "information"},
    {StampCampaignComponent::mainImage, "main_image"},
    {StampCampaignComponent::subImage, "sub_image"},
    {StampCampaignComponent::notice, "notice"},
    {StampCampaignComponent::stamp, "stamp"},
    {StampCampaignComponent::unknown, "unknown"},
});

}  // namespace

StampCampaignComponent stampCampaignComponent(std::string_view word) {
  return components.value(word).value_or(StampCampaignComponent::unknown);
}

}  // namespace orrelo
