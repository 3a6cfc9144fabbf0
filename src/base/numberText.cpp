#include "base/numberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace orrelo {
namespace {

template <class... Number>
std::string shortest(Number... number) {
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number...).ptr};
}

}  // namespace

std::string numberText(std::int64_t number) {
  return shortest(number);
}

std::string numberText(double number) {
  const double size = std::abs(number);
  const bool isPlain = size == 0.0 || (size >= 1e-4 && size < 1e16);
  return shortest(number, isPlain ? std::chars_format::fixed : std::chars_format::scientific);
}

}  // namespace orrelo
