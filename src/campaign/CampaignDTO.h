#pragma once

#include "base/InPlace.h"
#include "base/Json.h"
#include "campaign/PageDetailDTO.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace orrelo {

/// A campaign as the service sends it. Every field is required, and an error in one of them fails the reply.
/// An error in the detail of a page only makes that page unknown.
struct CampaignDTO {
  /// The page of a campaign. It is also the complete reply to a participation.
  struct PageResponse {
    std::string pageType;
    std::string pageId;
    PageDetailDTO pageDetail;

    /// Throw a DecodingError.
    static PageResponse decode(std::string_view json);
    static PageResponse decode(const JsonObject& json);

    friend bool operator==(const PageResponse&, const PageResponse&) = default;
  };

  std::string id;
  std::string label;
  std::string name;
  std::string iconUrl;
  PageResponse page;

  /// Throw a DecodingError.
  static CampaignDTO decode(std::string_view json);
  static CampaignDTO decode(const JsonObject& json);
  /// Returns the results of `map`, called for each campaign of a list in order. Throws at the first campaign
  /// that cannot be decoded.
  template <class Map>
  static auto decodeList(std::string_view json, Map map) {
    std::vector<std::invoke_result_t<Map&, CampaignDTO&&>> list;
    // No campaign is shorter, so that the memory is in proportion to the reply.
    const std::size_t mostCampaigns = json.size() / 32;
    visitList(json, [&](std::size_t count, CampaignDTO&& dto) {
      list.reserve(std::min(count, mostCampaigns));
      list.emplace_back(InPlace([&] { return map(std::move(dto)); }));
    });
    return list;
  }

  friend bool operator==(const CampaignDTO&, const CampaignDTO&) = default;

 private:
  /// Calls `visit` for each campaign, with the number of all.
  static void visitList(std::string_view json, const std::function<void(std::size_t, CampaignDTO&&)>& visit);
};

}  // namespace orrelo
