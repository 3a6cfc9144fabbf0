#pragma once

#include "base/Error.h"

#include <orrelo/Url.h>

namespace orrelo {

/// Explains why a view stays without the picture of this URL. A cancelled load needs no explanation.
void explainPicture(const Url& url, const Error& error);

}  // namespace orrelo
