#include "campaign/PageDetailDTO.h"

#include "base/Error.h"

namespace orrelo {
namespace {

constexpr auto fixedTitle = "이벤트";

template <class Detail>
PageDetailDTO decodeAs(const JsonObject& page, std::string_view key = "page_detail") {
  const auto json = page.object(key);
  return {Detail::decode(json), json.optionalText("toolbar_text")};
}

PageDetailDTO unknown() {
  return {UnknownCampaignDetailDTO{}, fixedTitle};
}

// A page of which this build can show nothing is unknown.
PageDetailDTO decodeModular(const JsonObject& page) {
  if (!page.find("page_details_v2"))
    return unknown();  // the same without an exception: a list has many of them
  auto detail = decodeAs<ModularCampaignPageDTO>(page, "page_details_v2");
  return std::get<ModularCampaignPageDTO>(detail.kind).components.empty() ? unknown() : detail;
}

}  // namespace

PageDetailDTO PageDetailDTO::decode(std::string_view pageType, const JsonObject& page) {
  const auto contains = [pageType](std::string_view word) {
    return pageType.find(word) != std::string_view::npos;
  };
  // The first that holds decides: an "attendance_result" is an attendance page.
  try {
    // Referral pages have no look yet.
    if (contains("attendance")) return decodeAs<AttendanceCampaignPageDetailDTO>(page);
    if (contains("referral")) return unknown();
    if (contains("stamp")) return decodeAs<StampCampaignPageDTO>(page);
    if (contains("marketing")) return decodeAs<OptInMarketingCampaignPageDetailDTO>(page);
    if (pageType == "custom_a_01" || pageType == "custom_a_02") return {DeprecatedPageDTO{}, fixedTitle};
    if (contains("result")) return decodeAs<CampaignResultPageDTO>(page);
    return decodeModular(page);
  } catch (const Error&) {
    // A page that this build cannot read must not cost the user the rest of the list.
    return unknown();
  }
}

}  // namespace orrelo
