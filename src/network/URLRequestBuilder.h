#pragma once

#include "network/NetworkError.h"

#include <orrelo/platform/URLSession.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

struct URLQueryItem {
  std::string name;
  std::optional<std::string> value;
};

/// Builds one request from the fields that a data source sets.
class URLRequestBuilder {
 public:
  enum class Method { post, get };
  /// "POST" or "GET"; `methodOf` accepts exactly these texts.
  static std::string_view rawValue(Method method);
  static std::optional<Method> methodOf(std::string_view rawValue);

  explicit URLRequestBuilder(Method requestMethod) : method(requestMethod) {}

  Method method;
  std::string baseUrl;
  std::optional<HTTPHeaders> headers;
  /// Appended to the base URL as text. A query in it is always dropped; only `queryItems` form the query.
  std::string path;
  std::optional<std::vector<URLQueryItem>> queryItems;
  std::optional<std::string> body;

  /// Throws NetworkError buildURLRequestFailed.
  URLRequest build() const;
};

}  // namespace orrelo
