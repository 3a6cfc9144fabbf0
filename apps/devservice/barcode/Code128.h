#pragma once

#include <string_view>
#include <vector>

namespace orrelo::devservice {

/// A Code 128 symbol of digits: in character set C, which holds two digits in a character.
class Code128 {
 public:
  static bool canHold(std::string_view digits);
  /// The modules from the first bar to the last, `true` for black, without the quiet zones. The digits must
  /// be such that `canHold` is true.
  static std::vector<bool> modules(std::string_view digits);
};

}  // namespace orrelo::devservice
