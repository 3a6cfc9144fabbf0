#include "platform/http/HttpUrl.h"

#include "base/Ascii.h"

namespace orrelo {

std::string originOf(const Url& url) {
  const auto scheme = ascii::lowercased(url.scheme());
  const std::string port = !url.port().empty() ? std::string(url.port()) : scheme == "https" ? "443" : "80";
  return scheme + "://" + hostOf(url) + ":" + port;
}

std::string hostOf(const Url& url) {
  return ascii::lowercased(url.host());
}

bool isHttp(const Url& url) {
  const auto scheme = ascii::lowercased(url.scheme());
  return (scheme == "http" || scheme == "https") && !url.host().empty();
}

}  // namespace orrelo
