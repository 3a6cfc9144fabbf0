#pragma once

#include "base/Error.h"

namespace orrelo {

enum class NetworkError {
  /// The base URL and the path do not form an absolute URL.
  buildURLRequestFailed,
  /// The reply's status is outside 200 to 299.
  invalidHttpStatusCode,
  /// There are no body bytes, or the reply is not HTTP.
  nonHttpResponse,
  /// Declared for completeness; never raised.
  parseStringFailed
};
Error makeError(NetworkError error);

}  // namespace orrelo
