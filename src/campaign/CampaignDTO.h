#pragma once

#include "base/Json.h"
#include "campaign/PageDetailDTO.h"

#include <functional>
#include <string>
#include <string_view>

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
  /// Calls `visit` for each campaign of a list, in order. Throws at the first campaign that cannot be
  /// decoded.
  static void decodeList(std::string_view json, const std::function<void(CampaignDTO&&)>& visit);

  friend bool operator==(const CampaignDTO&, const CampaignDTO&) = default;
};

}  // namespace orrelo
