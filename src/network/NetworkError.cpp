#include "network/NetworkError.h"

#include "base/EnumTexts.h"

namespace orrelo {

Error makeError(NetworkError error) {
  static constexpr EnumTexts<NetworkError, 4> names({
      {NetworkError::buildURLRequestFailed, "buildURLRequestFailed"},
      {NetworkError::invalidHttpStatusCode, "invalidHttpStatusCode"},
      {NetworkError::nonHttpResponse, "nonHttpResponse"},
      {NetworkError::parseStringFailed, "parseStringFailed"},
  });
  return Error("NetworkError", std::string(names.text(error)));
}

}  // namespace orrelo
