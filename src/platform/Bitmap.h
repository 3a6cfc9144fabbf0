#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orrelo {

/// A decoded picture. Copies share the pixels, which nobody changes.
struct Bitmap {
  static constexpr int maximumSide = 16'384;
  static constexpr int bytesPerPixel = 4;
  static constexpr std::size_t maximumSize = std::size_t{64} * 1024 * 1024;

  int width = 0;
  int height = 0;
  /// Pixels to a point.
  double scale = 1.0;
  /// Rows from the top without gaps; red, green, blue, alpha, the colours multiplied by alpha.
  std::shared_ptr<const std::uint8_t[]> pixels;

  /// The size of the pixels in bytes.
  static constexpr std::size_t sizeOf(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * bytesPerPixel;
  }
  std::size_t size() const { return sizeOf(width, height); }

  /// Whether a bitmap of this size may be made at all.
  static constexpr bool isAllowed(int width, int height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           sizeOf(width, height) <= maximumSize;
  }
};

}  // namespace orrelo
