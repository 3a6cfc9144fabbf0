#include "campaign/CampaignMapper.h"

#include "campaign/CampaignKinds.h"

#include <utility>

namespace orrelo {

Campaign CampaignMapper::map(CampaignDTO&& dto) const {
  auto& detail = dto.page.pageDetail;
  Campaign campaign{std::move(dto.id), std::move(dto.label), std::move(dto.name), std::move(dto.iconUrl),
                    std::move(detail.toolbarText)};
  kindOf(detail.kind).map(std::move(detail.kind), campaign);
  return campaign;
}

}  // namespace orrelo
