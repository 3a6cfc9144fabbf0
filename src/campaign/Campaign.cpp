#include "campaign/Campaign.h"

#include "campaign/CampaignKinds.h"

namespace orrelo {

Error makeError(CampaignTypeError) {
  return Error("CampaignTypeError", "mappingError");
}

ORLCampaignType publicType(const Campaign& campaign) {
  const auto type = kindOf(campaign.type).publicType(campaign);
  if (!type) throw makeError(CampaignTypeError::mappingError);
  return *type;
}

std::string pageName(const Campaign& campaign) {
  return kindOf(campaign.type).pageName(campaign);
}

}  // namespace orrelo
