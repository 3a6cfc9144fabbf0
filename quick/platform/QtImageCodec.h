#pragma once

#include "platform/ImageCodec.h"

namespace orrelo::quick {

/// By Qt's own readers, which see of a file what its pixels need (`PictureFile.h`). A call takes at most 128
/// MiB beside that copy and the reader's own tables: what the file's pixels are, or a JPEG's scans, and the
/// bitmap.
class QtImageCodec final : public ImageCodec {
 public:
  std::optional<Bitmap> decode(std::string_view bytes) override;
  std::optional<std::string> encode(const Bitmap& bitmap) override;
};

}  // namespace orrelo::quick
