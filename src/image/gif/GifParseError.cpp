#include "image/gif/GifParseError.h"

#include "base/EnumTexts.h"

namespace orrelo {

Error makeError(GifParseError error) {
  static constexpr EnumTexts<GifParseError, 5> names({
      {GifParseError::invalidFilename, "invalidFilename"},
      {GifParseError::noImages, "noImages"},
      {GifParseError::noProperties, "noProperties"},
      {GifParseError::noGifDictionary, "noGifDictionary"},
      {GifParseError::noTimingInfo, "noTimingInfo"},
  });
  const bool isFilename = error == GifParseError::invalidFilename;
  return Error("GifParseError", std::string(names.text(error)),
               isFilename ? "Invalid file name" : "Invalid gif file ");
}

}  // namespace orrelo
