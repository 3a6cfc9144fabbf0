#pragma once

#include "platform/Bitmap.h"

namespace orrelo {

/// The same picture in fewer pixels, each the mean of the area that it covers. `width` and `height` are at
/// least 1 and at most the bitmap's.
Bitmap downsampled(const Bitmap& bitmap, int width, int height);

}  // namespace orrelo
