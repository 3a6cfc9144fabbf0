#pragma once

#include "base/Color.h"
#include "campaign/Campaign.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/ObservableType.h"

namespace orrelo {

/// A campaign with the brand colours of the host.
struct BrandedCampaign {
  Campaign campaign;
  Color primary;
  Color secondary;
  Color secondaryVariant;

  friend bool operator==(const BrandedCampaign&, const BrandedCampaign&) = default;
};

/// Adds the colours of the configuration to each campaign.
reactive::Observable<BrandedCampaign> branded(const reactive::Observable<Campaign>& campaigns,
                                              FetchConfigUseCase& fetchConfigUseCase);

}  // namespace orrelo
