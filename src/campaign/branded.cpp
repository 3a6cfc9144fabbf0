#include "campaign/branded.h"

#include "config/withBrandTheme.h"
#include "reactive/Observable.h"

namespace orrelo {

reactive::Observable<BrandedCampaign> branded(const reactive::Observable<Campaign>& campaigns,
                                              FetchConfigUseCase& fetchConfigUseCase) {
  return withBrandTheme(campaigns, fetchConfigUseCase).map([](const std::tuple<Campaign, BrandTheme>& row) {
    const auto& [campaign, theme] = row;
    return BrandedCampaign{campaign, theme.primary, theme.seconary, theme.seconaryVariant};
  });
}

}  // namespace orrelo
