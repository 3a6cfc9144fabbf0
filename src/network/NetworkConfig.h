#pragma once

#include <orrelo/platform/URLSession.h>

#include <string>

namespace orrelo {

/// The base URL and the common headers of a feature's requests.
struct NetworkConfig {
  /// "<service URL>/orreloservice/sdk/<app key>"; paths are appended as text.
  std::string baseUrl;
  HTTPHeaders headers;
};

/// Adds the header "buid" with the user's id and replaces an existing one.
inline HTTPHeaders withUser(HTTPHeaders headers, const std::string& userId) {
  headers["buid"] = userId;
  return headers;
}

/// Adds "Content-Type" to the headers of requests with a JSON body.
inline HTTPHeaders withJsonContentType(HTTPHeaders headers) {
  headers["Content-Type"] = "application/json";
  return headers;
}

}  // namespace orrelo
