#pragma once

#include "inappmessage/InAppMessageDTO.h"

#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// The service's reply with the banners of a user. Both fields are required.
struct FetchInAppMessageResponse {
  /// Decoded and otherwise unused.
  std::string type;
  /// In the order of display.
  std::vector<InAppMessageDTO> items;

  /// Throws a DecodingError.
  static FetchInAppMessageResponse decode(std::string_view json);

  friend bool operator==(const FetchInAppMessageResponse&, const FetchInAppMessageResponse&) = default;
};

}  // namespace orrelo
