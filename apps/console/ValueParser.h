#pragma once

#include <orrelo/EventValue.h>

#include <stdexcept>
#include <string_view>
#include <vector>

namespace orrelo::console {

class SyntaxError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Splits a command line at blanks outside quotes and brackets. Throws SyntaxError if one of these stays
/// open.
std::vector<std::string> splitWords(std::string_view line);

/// Reads one value: null, true, 3, 3.5, "text" or bare text, [a, b], set[a, b], {key: value},
/// date(2026-01-02T03:04:05Z), uuid(…), url(…), bytes(…). Throws SyntaxError.
EventValue parseValue(std::string_view text);

/// Reads words of the form key=value. Throws SyntaxError.
EventValues parseValues(const std::vector<std::string>& words);

}  // namespace orrelo::console
