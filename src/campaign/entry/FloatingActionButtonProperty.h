#pragma once

#include <string>
#include <string_view>

namespace orrelo {

/// The look of the floating button, as the service defines it.
struct FloatingActionButtonProperty {
  std::string iconUrl;
  /// A hex text, see `Color::fromHex`.
  std::string color;
  /// Empty if there is nothing to say.
  std::string tooltipMessage;

  /// The stored form. Throws a DecodingError; every field is required.
  static FloatingActionButtonProperty decode(std::string_view json);
  std::string encode() const;

  friend bool operator==(const FloatingActionButtonProperty&, const FloatingActionButtonProperty&) = default;
};

}  // namespace orrelo
