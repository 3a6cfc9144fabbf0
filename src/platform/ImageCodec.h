#pragma once

#include "platform/Bitmap.h"

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// Pictures from files' bytes and back. Any thread, several at once.
class ImageCodec {
 public:
  virtual ~ImageCodec() = default;

  /// The picture in a PNG, JPEG or WebP file that stands still, upright, with a scale of 1. What kind it is
  /// shows in the bytes alone. Nothing where they are none of these or broken off, for a size that
  /// `Bitmap::isAllowed` forbids, and for a file that takes more than twice the largest bitmap's memory to
  /// read: that is found in the headers, before memory for pixels is taken.
  virtual std::optional<Bitmap> decode(std::string_view bytes) = 0;
  /// As a PNG file. Nothing for an empty bitmap.
  virtual std::optional<std::string> encode(const Bitmap& bitmap) = 0;
};

}  // namespace orrelo
