#pragma once

#include "base/Color.h"
#include "campaign/Campaign.h"

namespace orrelo {

/// A campaign with the brand colours of the host.
struct BrandedCampaign {
  Campaign campaign;
  Color primary;
  Color secondary;
  Color secondaryVariant;

  friend bool operator==(const BrandedCampaign&, const BrandedCampaign&) = default;
};

}  // namespace orrelo
