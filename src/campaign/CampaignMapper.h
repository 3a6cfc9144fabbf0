#pragma once

#include "campaign/Campaign.h"
#include "campaign/CampaignDTO.h"

namespace orrelo {

/// From what the service sends to what the screens show. Never fails: a page that has no place here is an
/// unknown campaign.
class CampaignMapper {
 public:
  Campaign map(CampaignDTO&& dto) const;
};

}  // namespace orrelo
