#pragma once

#include "base/Error.h"

namespace orrelo {

enum class NetworkError {
  /// The base URL and the path make no absolute URL.
  buildURLRequestFailed,
  /// The reply's status is outside 200 to 299.
  invalidHttpStatusCode,
  /// No body bytes, or no reply of HTTP's.
  nonHttpResponse,
  /// Declared for completeness; nothing raises it.
  parseStringFailed
};
Error makeError(NetworkError error);

}  // namespace orrelo
