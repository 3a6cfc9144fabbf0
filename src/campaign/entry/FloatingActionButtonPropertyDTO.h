#pragma once

#include "campaign/entry/FloatingActionButtonProperty.h"

#include <string>
#include <string_view>

namespace orrelo {

/// The reply of "/fab". Every field is required.
struct FloatingActionButtonPropertyDTO {
  std::string iconUrl;
  std::string color;
  std::string tooltipMessage;

  /// Throws a DecodingError.
  static FloatingActionButtonPropertyDTO decode(std::string_view json);
  FloatingActionButtonProperty toProperty() const { return {iconUrl, color, tooltipMessage}; }
};

}  // namespace orrelo
