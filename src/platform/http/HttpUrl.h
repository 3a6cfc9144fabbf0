#pragma once

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <string>

namespace orrelo {

/// The origin "https://host:port" in lower case, always with the port. Certificates are trusted per origin.
std::string originOf(const Url& url);
/// The host in lower case.
std::string hostOf(const Url& url);
/// True if the scheme is http or https and there is a host.
ORRELO_EXPORT bool isHttp(const Url& url);

}  // namespace orrelo
