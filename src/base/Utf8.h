#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orrelo::utf8 {

bool isValid(std::string_view text);

/// The text with each malformed sequence replaced by U+FFFD, so that any host text can be stored and sent.
std::string repaired(std::string_view text);

/// The number of code points of a valid text.
std::size_t length(std::string_view text);

/// The first `count` code points of a valid text, with "…" in place of the rest.
std::string beginning(std::string_view text, std::size_t count);

/// The number of user-perceived characters of a valid text: the extended grapheme clusters of Unicode
/// Standard Annex 29, in Unicode 14. A joined emoji, a flag and a decomposed syllable count as one each.
std::size_t graphemeCount(std::string_view text);

}  // namespace orrelo::utf8
