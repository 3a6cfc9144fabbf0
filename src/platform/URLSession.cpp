#include "base/EnumTexts.h"

#include <orrelo/platform/URLSession.h>

#include <utility>

namespace orrelo {

Error makeError(URLError error, std::optional<std::string> message) {
  static constexpr EnumTexts<URLError, 11> names({
      {URLError::unknown, "unknown"},
      {URLError::badURL, "badURL"},
      {URLError::unsupportedURL, "unsupportedURL"},
      {URLError::timedOut, "timedOut"},
      {URLError::cannotFindHost, "cannotFindHost"},
      {URLError::cannotConnectToHost, "cannotConnectToHost"},
      {URLError::networkConnectionLost, "networkConnectionLost"},
      {URLError::secureConnectionFailed, "secureConnectionFailed"},
      {URLError::httpTooManyRedirects, "httpTooManyRedirects"},
      {URLError::cannotDecodeContentData, "cannotDecodeContentData"},
      {URLError::dataLengthExceedsMaximum, "dataLengthExceedsMaximum"},
  });
  return Error("URLError", std::string(names.text(error)), std::move(message));
}

}  // namespace orrelo
