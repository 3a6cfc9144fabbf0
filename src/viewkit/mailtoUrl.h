#pragma once

#include <orrelo/Export.h>
#include <orrelo/Url.h>

#include <string_view>

namespace orrelo {

/// The URL of a new mail without recipient (RFC 6068) with this body, whose line breaks of any kind become
/// "%0D%0A".
ORRELO_EXPORT Url mailtoUrl(std::string_view body);

}  // namespace orrelo
