#include "barcode/Code128.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orrelo::devservice {

namespace {

constexpr std::size_t startOfSetC = 105;
constexpr std::size_t stop = 106;
constexpr std::size_t checkModulus = 103;
constexpr std::size_t mostDigits = 32;

/// The widths of the bars and spaces of each character, in turn and in modules.
constexpr std::array<std::string_view, 107> characters{
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};

}  // namespace

bool Code128::canHold(std::string_view digits) {
  return !digits.empty() && digits.size() % 2 == 0 && digits.size() <= mostDigits &&
         std::ranges::all_of(digits, [](char each) { return each >= '0' && each <= '9'; });
}

std::vector<bool> Code128::modules(std::string_view digits) {
  std::vector<bool> result;
  const auto append = [&](std::size_t character) {
    bool isBlack = true;
    for (const char width : characters.at(character)) {
      result.insert(result.end(), static_cast<std::size_t>(width - '0'), isBlack);
      isBlack = !isBlack;
    }
  };
  append(startOfSetC);
  auto check = startOfSetC;
  for (std::size_t at = 0; at < digits.size(); at += 2) {
    const auto character = static_cast<std::size_t>((digits[at] - '0') * 10 + (digits[at + 1] - '0'));
    append(character);
    check += character * (at / 2 + 1);
  }
  append(check % checkModulus);
  append(stop);
  return result;
}

}  // namespace orrelo::devservice
