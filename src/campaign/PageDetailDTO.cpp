#include "campaign/PageDetailDTO.h"

#include "base/Error.h"
#include "base/explain.h"
#include "base/jsonPointer.h"
#include "campaign/CampaignKinds.h"

namespace orrelo {

PageDetailDTO PageDetailDTO::decode(std::string_view pageType, const JsonObject& page) {
  try {
    return kindOfPage(pageType).decode(page);
  } catch (const Error& error) {
    explain(ExplanationLevel::warning, [&] {
      return "The page " + jsonPointer(page) + " of type \"" + std::string(pageType) +
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
