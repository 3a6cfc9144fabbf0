#pragma once

#include <orrelo/Export.h>
#include <orrelo/platform/Bitmap.h>

#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

/// Decodes and encodes image files. Any thread, also concurrently.
class ORRELO_EXPORT ImageCodec {
 public:
  virtual ~ImageCodec() = default;

  /// Decodes a still PNG, JPEG or WebP file to an upright bitmap with a scale of 1. The format is detected
  /// from the bytes alone. Returns nullopt for other formats, for truncated files, for a size that
  /// `Bitmap::isAllowed` rejects, and for a file that needs more than twice the largest bitmap's memory to
  /// decode; the sizes are checked in the headers, before memory for pixels is allocated.
  virtual std::optional<Bitmap> decode(std::string_view bytes) = 0;
  /// Encodes a PNG file; returns nullopt for an empty bitmap.
  virtual std::optional<std::string> encode(const Bitmap& bitmap) = 0;
};

}  // namespace orrelo
