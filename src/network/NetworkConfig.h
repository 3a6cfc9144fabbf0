#pragma once

#include "platform/URLSession.h"

#include <string>

namespace orrelo {

/// Where a feature's requests go, and the headers that all of them carry.
struct NetworkConfig {
  /// "<service URL>/orreloservice/sdk/<app key>"; a path is appended as it stands.
  std::string baseUrl;
  HTTPHeaders headers;
};

/// The headers with "Content-Type" for calls that have a JSON body.
inline HTTPHeaders withJsonContentType(HTTPHeaders headers) {
  headers["Content-Type"] = "application/json";
  return headers;
}

}  // namespace orrelo
