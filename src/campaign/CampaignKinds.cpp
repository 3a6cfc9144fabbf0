#include "campaign/CampaignKinds.h"

#include "base/InPlace.h"
#include "campaign/attendance/AttendanceCampaignKind.h"
#include "campaign/deprecated/DeprecatedCampaignKind.h"
#include "campaign/modular/ModularCampaignKind.h"
#include "campaign/optinmarketing/OptInMarketingCampaignKind.h"
#include "campaign/referral/ReferralCampaignKind.h"
#include "campaign/result/CampaignResultKind.h"
#include "campaign/stamp/StampCampaignKind.h"
#include "campaign/unknown/UnknownCampaignKind.h"
#include "campaign/update/InduceUpdateCampaignKind.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

namespace orrelo {
namespace {

template <class T, class... Alternatives>
constexpr std::size_t alternativeIndex(std::type_identity<std::variant<Alternatives...>>) {
  constexpr std::array isIt{std::is_same_v<T, Alternatives>...};
  return static_cast<std::size_t>(std::find(isIt.begin(), isIt.end(), true) - isIt.begin());
}

/// The row of a kind. `matches` is null if no page type selects the kind.
template <class Kind>
constexpr CampaignKind kind(bool (*matches)(std::string_view pageType)) {
  using Record = typename Kind::Record;
  CampaignKind row{
      .record = alternativeIndex<Record>(std::type_identity<Campaign::CampaignType>()),
      .matches = matches,
      .pageName =
          [](const Campaign& campaign) {
            return std::string(Kind::pageName(std::get<Record>(campaign.type)));
          },
      .publicType = [](const Campaign& campaign) -> std::optional<ORLCampaignType> {
        return Kind::publicType(std::get<Record>(campaign.type));
      },
      .show =
          [](const BrandedCampaign& element, const std::shared_ptr<CampaignScreen>& screen) {
            Kind::show(std::get<Record>(element.campaign.type), element, screen);
          },
  };
  if constexpr (requires { typename Kind::Detail; }) {
    using Detail = typename Kind::Detail;
    row.detail = alternativeIndex<Detail>(std::type_identity<PageDetailDTO::Kind>());
    row.decode = &Kind::decode;
    row.map = [](PageDetailDTO::Kind&& detail, Campaign& campaign) {
      const auto map = [&] { return Kind::map(std::get<Detail>(std::move(detail)), campaign); };
      if constexpr (std::is_same_v<decltype(map()), Record>) {
        campaign.type.template emplace<Record>(InPlace(map));
      } else {  // a kind whose page may turn out to be another kind's
        campaign.type = map();
      }
    };
  }
  return row;
}

constexpr bool has(std::string_view pageType, std::string_view word) {
  return pageType.find(word) != std::string_view::npos;
}

// Page types are matched in this order, so that an "attendance_result" is an attendance page. The modular
// kind matches any type; a new kind is one more row before it. A page becomes unknown if its kind cannot
// decode it, never by its type.
constexpr std::array kinds{
    kind<AttendanceCampaignKind>([](std::string_view type) { return has(type, "attendance"); }),
    kind<ReferralCampaignKind>([](std::string_view type) { return has(type, "referral"); }),
    kind<StampCampaignKind>([](std::string_view type) { return has(type, "stamp"); }),
    kind<OptInMarketingCampaignKind>([](std::string_view type) { return has(type, "marketing"); }),
    kind<DeprecatedCampaignKind>(
        [](std::string_view type) { return type == "custom_a_01" || type == "custom_a_02"; }),
    kind<CampaignResultKind>([](std::string_view type) { return has(type, "result"); }),
    kind<ModularCampaignKind>([](std::string_view) { return true; }),
    kind<UnknownCampaignKind>(nullptr),
    kind<InduceUpdateCampaignKind>(nullptr),
};

constexpr bool coversAll(std::size_t CampaignKind::*index, std::size_t count) {
  for (std::size_t each = 0; each < count; ++each) {
    if (std::count_if(kinds.begin(), kinds.end(),
                      [&](const CampaignKind& row) { return row.*index == each; }) != 1)
      return false;
  }
  return true;
}

static_assert(coversAll(&CampaignKind::detail, std::variant_size_v<PageDetailDTO::Kind>),
              "every detail has one kind");
static_assert(coversAll(&CampaignKind::record, std::variant_size_v<Campaign::CampaignType>),
              "every record has one kind");

static_assert(std::count_if(kinds.begin(), kinds.end(),
                            [](const CampaignKind& row) {
                              return row.detail != std::variant_npos && row.matches == nullptr;
                            }) == 1,
              "only a page's failure makes it unknown; a type selects each other kind with pages");

template <class IsIt>
const CampaignKind& first(IsIt isIt) {
  return *std::find_if(kinds.begin(), kinds.end(), isIt);
}

}  // namespace

const CampaignKind& kindOfPage(std::string_view pageType) {
  return first(
      [pageType](const CampaignKind& row) { return row.matches != nullptr && row.matches(pageType); });
}

const CampaignKind& kindOf(const PageDetailDTO::Kind& detail) {
  return first([index = detail.index()](const CampaignKind& row) { return row.detail == index; });
}

const CampaignKind& kindOf(const Campaign::CampaignType& record) {
  return first([index = record.index()](const CampaignKind& row) { return row.record == index; });
}

}  // namespace orrelo
