#include "campaign/PageDetailDTO.h"

#include "base/Error.h"
#include "base/PageOmissions.h"
#include "campaign/CampaignKinds.h"

namespace orrelo {

PageDetailDTO PageDetailDTO::decode(std::string_view pageType, const JsonObject& page) {
  try {
    return kindOfPage(pageType).decode(page);
  } catch (const Error& error) {
    explainOmission(page, "", [&] {
      return "of type \"" + std::string(pageType) +
             "\" cannot be shown, and the screen for unknown campaigns stands in its place: " +
             error.localizedDescription();
    });
    // A single page that cannot be decoded must not fail the whole list.
    return unknown();
  }
}

PageDetailDTO PageDetailDTO::unknown() {
  return {UnknownCampaignDetailDTO{}, fixedTitle};
}

}  // namespace orrelo
