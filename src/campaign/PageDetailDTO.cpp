#include "campaign/PageDetailDTO.h"

#include "base/Error.h"
#include "campaign/CampaignKinds.h"

namespace orrelo {

PageDetailDTO PageDetailDTO::decode(std::string_view pageType, const JsonObject& page) {
  try {
    return kindOfPage(pageType).decode(page);
  } catch (const Error&) {
    // A page that this build cannot read must not cost the user the rest of the list.
    return unknown();
  }
}

PageDetailDTO PageDetailDTO::unknown() {
  return {UnknownCampaignDetailDTO{}, fixedTitle};
}

}  // namespace orrelo
