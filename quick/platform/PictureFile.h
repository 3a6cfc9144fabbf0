#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrelo::quick {

/// An image file stripped of everything that its pixels do not need: texts, colour profiles and other data
/// that a reader would unpack and keep.
struct PictureFile {
  /// The format's name for QImageReader.
  const char* format;
  std::string bytes;
};

/// Strips a PNG, JPEG or WebP file by its markers and lengths alone, before any reader sees it. Returns
/// nothing if the file has another format, is truncated or is an animated WebP; if it is a JPEG with more
/// than 100 scans or with a coding process that few readers support; or if the coefficients of its scans and
/// its pixels would take more than 128 MiB.
std::optional<PictureFile> pictureFile(std::string_view bytes);

}  // namespace orrelo::quick
