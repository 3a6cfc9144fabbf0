#pragma once

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orrelo {

/// A decoded image. Copies share the pixels, which are immutable.
struct ORRELO_EXPORT Bitmap {
  static constexpr int maximumSide = 16'384;
  static constexpr int bytesPerPixel = 4;
  static constexpr std::size_t maximumSize = std::size_t{64} * 1024 * 1024;

  int width = 0;
  int height = 0;
  /// In pixels per point.
  double scale = 1.0;
  /// Tightly packed rows from top to bottom. A pixel is an integer 0xAARRGGBB in the machine's byte order
  /// with premultiplied alpha, which software renderers draw without converting it.
  std::shared_ptr<const std::uint8_t[]> pixels;
  /// True only if every pixel is known to be opaque.
  bool isOpaque = false;

  /// The size of the pixels in bytes.
  static constexpr std::size_t sizeOf(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * bytesPerPixel;
  }
  std::size_t size() const { return sizeOf(width, height); }

  /// True if a bitmap of this size is within the limits.
  static constexpr bool isAllowed(int width, int height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           sizeOf(width, height) <= maximumSize;
  }
};

}  // namespace orrelo
