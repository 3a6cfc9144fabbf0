#include "viewkit/mailtoUrl.h"

#include "base/Ascii.h"
#include "base/Utf8.h"

#include <string>

namespace orrelo {
namespace {

bool isUnreserved(char c) {
  return ascii::isAlphanumeric(c) || std::string_view("-._~").find(c) != std::string_view::npos;
}

std::string withMailLineBreaks(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      lines += text[i];
      continue;
    }
    lines += "\r\n";
    if (text.substr(i, 2) == "\r\n") ++i;
  }
  return lines;
}

}  // namespace

Url mailtoUrl(std::string_view body) {
  const auto lines = withMailLineBreaks(utf8::repaired(body));
  return *Url::parse("mailto:?body=" + ascii::percentEncoded(lines, isUnreserved));
}

}  // namespace orrelo
