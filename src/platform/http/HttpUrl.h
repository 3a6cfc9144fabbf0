#pragma once

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <string>

namespace orrelo {

/// "https://host:port" in lower case, the port always told: what trust is given to.
std::string originOf(const Url& url);
/// In lower case.
std::string hostOf(const Url& url);
/// Whether the scheme is http or https, and there is a host.
ORRELO_EXPORT bool isHttp(const Url& url);

}  // namespace orrelo
