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
  /// The smallest that holds both.
  PixelRect united(const PixelRect& other) const;

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// How much of a cover is left at each of its pixels: 255 where it is whole, 0 where it is gone. A value; no
/// two threads may touch the same one.
class ORRELO_EXPORT AlphaMask {
 public:
  AlphaMask() = default;
  /// A whole one; both sides are positive.
  AlphaMask(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }
  /// Row by row from the top, without gaps.
  const std::vector<std::uint8_t>& pixels() const { return pixels_; }
  PixelRect bounds() const { return {0, 0, width_, height_}; }

  /// Rubs out a smooth line with round ends, and gives the pixels that it may have changed. Points and width
  /// are in pixels; a point that no finger can have touched rubs out nothing.
  PixelRect eraseLine(Point from, Point to, double lineWidth);
  /// From 0 to 1.
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
