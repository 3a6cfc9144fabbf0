#include "viewkit/bulletLines.h"

namespace orrelo {

std::string bulletLines(const std::vector<std::string>& texts) {
  std::string lines;
  for (const auto& text : texts) {
    if (!lines.empty()) lines += '\n';
    lines += "• " + text;
  }
  return lines;
}

}  // namespace orrelo
