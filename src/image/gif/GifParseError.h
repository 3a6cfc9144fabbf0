#pragma once

#include "base/Error.h"

namespace orrelo {

/// The bytes are not a GIF that can be played.
enum class GifParseError { invalidFilename, noImages, noProperties, noGifDictionary, noTimingInfo };
Error makeError(GifParseError error);

}  // namespace orrelo
