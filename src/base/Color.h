#pragma once

#include <string>
#include <string_view>

namespace orrelo {

/// An sRGB colour; each component from 0 to 1.
struct Color {
  double red = 0.0;
  double green = 0.0;
  double blue = 0.0;
  double alpha = 1.0;

  /// Parses the service's colour texts ("#FF0000", "#" optional, in either case). Never fails: an empty text
  /// and a text of seven or more characters are black. Parsing stops at the first character that is not a
  /// digit, and a short text is read as a small number: "#FFF" is 0x000FFF. The result is always opaque.
  static Color fromHex(std::string_view text);

  /// The text "#rrggbb", each component scaled to 255 and truncated; alpha is dropped. Aborts the process if
  /// a component is not finite.
  std::string hexText() const;

  friend bool operator==(const Color&, const Color&) = default;
};

}  // namespace orrelo
