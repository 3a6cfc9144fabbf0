#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace orrelo {

/// Maps the cases of an enumeration to texts and back:
///
///     constexpr EnumTexts<Method, 2> methods({{Method::post, "POST"}, {Method::get, "GET"}});
///
/// Does not compile unless the rows are in the order of the cases.
template <class Enum, std::size_t Count>
class EnumTexts {
 public:
  using Row = std::pair<Enum, std::string_view>;

  consteval explicit EnumTexts(const Row (&rows)[Count]) {
    for (std::size_t i = 0; i < Count; ++i) {
      if (static_cast<std::size_t>(rows[i].first) != i) throw "a row stands at another case's place";
      texts_[i] = rows[i].second;
    }
  }

  constexpr std::string_view text(Enum value) const { return texts_.at(static_cast<std::size_t>(value)); }

  /// The case with exactly this text; nullopt if there is none.
  constexpr std::optional<Enum> value(std::string_view text) const {
    const auto found = std::find(texts_.begin(), texts_.end(), text);
    if (found == texts_.end()) return std::nullopt;
    return static_cast<Enum>(found - texts_.begin());
  }

 private:
  std::array<std::string_view, Count> texts_;
};

}  // namespace orrelo
