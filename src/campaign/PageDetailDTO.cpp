#include "campaign/PageDetailDTO.h"

#include "core/base/Error.h"

namespace orrelo {
namespace {

constexpr auto fixedTitle = "이벤트";

template <class Detail>
PageDetailDTO decodeAs(const JsonObject& page) {
  const auto json = page.object("page_detail");
  return {Detail::decode(json), json.optionalText("toolbar_text")};
}

PageDetailDTO unknown() {
  return {UnknownCampaignDetailDTO{}, fixedTitle};
}

}  // namespace

PageDetailDTO PageDetailDTO::decode(std::string_view pageType, const JsonObject& page) {
  const auto contains = [pageType](std::string_view word) {
    return pageType.find(word) != std::string_view::npos;
  };
  // The first that holds decides: an "attendance_result" is an attendance page.
  try {
    // Referral, stamp and marketing pages have no look yet.
    if (contains("attendance")) return decodeAs<AttendanceCampaignPageDetailDTO>(page);
    if (contains("referral")) return unknown();
    if (contains("stamp")) return unknown();
    if (contains("marketing")) return unknown();
    if (pageType == "custom_a_01" || pageType == "custom_a_02") return {DeprecatedPageDTO{}, fixedTitle};
    if (contains("result")) return decodeAs<CampaignResultPageDTO>(page);
    return unknown();
  } catch (const Error&) {
    // A page that this build cannot read must not cost the user the rest of the list.
    return unknown();
  }
}

}  // namespace orrelo
