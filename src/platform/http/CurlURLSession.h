#pragma once

#include "platform/URLSession.h"

#include <memory>

namespace orrelo {

/// Requests by libcurl: one multi handle on one thread, which starts with the first request. HTTP/2 where the
/// server offers it, connections reused.
std::shared_ptr<URLSession> makeCurlURLSession();

}  // namespace orrelo
