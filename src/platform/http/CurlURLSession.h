#pragma once

#include <orrelo/platform/URLSession.h>

#include <memory>

namespace orrelo {

/// Makes a session that uses one libcurl multi handle on one thread; the thread starts with the first
/// request. Uses HTTP/2 if the server offers it, and reuses connections.
std::shared_ptr<URLSession> makeCurlURLSession();

}  // namespace orrelo
