#pragma once

#include "ui/Geometry.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orrelo {

struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool isEmpty() const { return width <= 0 || height <= 0; }
  /// The smallest rectangle that contains both.
  PixelRect united(const PixelRect& other) const;

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// The opacity of a cover at each of its pixels: 255 where it is intact, 0 where it was erased. A value type;
/// not thread-safe.
class ORRELO_EXPORT AlphaMask {
 public:
  AlphaMask() = default;
  /// Creates an intact mask; both sides must be positive.
  AlphaMask(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }
  /// The pixels row by row from the top, without padding.
  const std::vector<std::uint8_t>& pixels() const { return pixels_; }
  PixelRect bounds() const { return {0, 0, width_, height_}; }

  /// Erases an antialiased line with round ends and returns the pixels that may have changed. Points and
  /// width are in pixels. Does nothing if a coordinate is implausibly large.
  PixelRect eraseLine(Position from, Position to, double lineWidth);
  /// The erased share of the pixels, from 0 to 1.
  double clearedRatio() const;
  AlphaMask stretched(int width, int height) const;

 private:
  std::uint8_t* row(int y) {
    return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }
  const std::uint8_t* row(int y) const {
    return pixels_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width_);
  }

  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint8_t> pixels_;
};

}  // namespace orrelo
