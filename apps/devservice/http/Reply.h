#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::devservice {

/// A response to send.
struct Reply {
  int status = 200;
  /// Shared, so that a large body is not copied for each request.
  std::shared_ptr<const std::string> body = std::make_shared<const std::string>();
  std::string contentType = "application/json";
  std::vector<std::pair<std::string, std::string>> headers = {};

  static Reply text(int status, std::string body, std::string contentType = "application/json") {
    return {status, std::make_shared<const std::string>(std::move(body)), std::move(contentType)};
  }
};

}  // namespace orrelo::devservice
