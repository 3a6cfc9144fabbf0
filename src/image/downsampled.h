#pragma once

#include <orrelo/platform/Bitmap.h>

namespace orrelo {

/// Scales the bitmap down; each resulting pixel is the mean of the area that it covers. `width` and `height`
/// must be at least 1 and at most those of the bitmap.
Bitmap downsampled(const Bitmap& bitmap, int width, int height);

}  // namespace orrelo
