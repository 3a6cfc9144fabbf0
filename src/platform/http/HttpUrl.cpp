#include "platform/http/HttpUrl.h"

#include <algorithm>
#include <cctype>

namespace orrelo {

std::string lowercased(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return result;
}

std::string originOf(const Url& url) {
  const auto scheme = lowercased(url.scheme());
  const std::string port = !url.port().empty() ? std::string(url.port()) : scheme == "https" ? "443" : "80";
  return scheme + "://" + hostOf(url) + ":" + port;
}

std::string hostOf(const Url& url) {
  return lowercased(url.host());
}

bool isHttp(const Url& url) {
  const auto scheme = lowercased(url.scheme());
  return (scheme == "http" || scheme == "https") && !url.host().empty();
}

}  // namespace orrelo
