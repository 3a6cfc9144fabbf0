#pragma once

#include <orrelo/platform/ImageCodec.h>

namespace orrelo::quick {

/// Decodes with Qt's readers, which are given a stripped copy of the file (`PictureFile.h`). A call takes at
/// most 128 MiB for the file's pixels or a JPEG's scans and for the bitmap, in addition to that copy and the
/// reader's own tables.
class QtImageCodec final : public ImageCodec {
 public:
  std::optional<Bitmap> decode(std::string_view bytes) override;
  std::optional<std::string> encode(const Bitmap& bitmap) override;
};

}  // namespace orrelo::quick
