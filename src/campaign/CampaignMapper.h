#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignDTO.h"

namespace orrelo {

/// Maps the service's records to the ones that the screens show. Never fails: an unsupported page becomes an
/// unknown campaign.
class CampaignMapper {
 public:
  Campaign map(CampaignDTO&& dto) const;
};

}  // namespace orrelo
