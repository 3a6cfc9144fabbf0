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

  /// Reads the service's colour texts ("#FF0000", with or without "#", in either case). Never fails: an empty
  /// text and one of seven or more characters are black; digits are read up to the first character that is
  /// none, so a short text is a small number and not a short form ("#FFF" is 0x000FFF). Always opaque.
  static Color fromHex(std::string_view text);

  /// "#rrggbb", each component truncated to a whole 255th; alpha is dropped.
  /// Stops the process when a component is not finite.
  std::string hexText() const;

  friend bool operator==(const Color&, const Color&) = default;
};

}  // namespace orrelo
