#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrelo::quick {

/// A picture's file without all that its pixels do not need: texts, profiles and whatever else a reader would
/// unpack and keep.
struct PictureFile {
  /// As Qt's readers are called.
  const char* format;
  std::string bytes;
};

/// What the marks and lengths in a PNG, JPEG or WebP file show, before any reader sees it. Nothing where it
/// is none of these, is broken off, moves (WebP), or is a JPEG of more than 100 scans or of a form that few
/// readers know; nor for one whose scans have to be kept in more than 128 MiB together with its pixels.
std::optional<PictureFile> pictureFile(std::string_view bytes);

}  // namespace orrelo::quick
