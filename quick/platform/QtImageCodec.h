#pragma once

#include "platform/ImageCodec.h"

namespace orrelo::quick {

/// By Qt's own readers. While it decodes, a call takes at most 64 MiB for what the file's pixels are and 64
/// MiB for the bitmap, beside the reader's own tables.
class QtImageCodec final : public ImageCodec {
 public:
  std::optional<Bitmap> decode(std::string_view bytes) override;
  std::optional<std::string> encode(const Bitmap& bitmap) override;
};

}  // namespace orrelo::quick
