#pragma once

#include "campaign/BrandedCampaign.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/ObservableType.h"

namespace orrelo {

/// Adds the colours of the configuration to each campaign.
reactive::Observable<BrandedCampaign> branded(const reactive::Observable<Campaign>& campaigns,
                                              FetchConfigUseCase& fetchConfigUseCase);

}  // namespace orrelo
