#pragma once

#include "base/Json.h"
#include "inappmessage/InAppMessage.h"

#include <string>

namespace orrelo {

/// A banner as the service sends it. Both fields are required.
struct InAppMessageDTO {
  std::string campaignId;
  std::string imageUrl;

  /// Throws a DecodingError.
  static InAppMessageDTO decode(const JsonObject& json) {
    return {json.text("campaign_id"), json.text("image_url")};
  }
  InAppMessage map() const { return {campaignId, imageUrl}; }

  friend bool operator==(const InAppMessageDTO&, const InAppMessageDTO&) = default;
};

}  // namespace orrelo
