#include "image/downsampled.h"

#include <algorithm>
#include <vector>

namespace orrelo {
namespace {

using Row = std::vector<float>;

// Calls `take(position, weight)` for each source pixel that the result's pixel `index` covers in one
// dimension. The weight is the pixel's share of the covered length; the first and the last pixel may be
// covered partially.
template <class Take>
void forEachCovered(int index, int count, int sourceCount, const Take& take) {
  const double length = static_cast<double>(sourceCount) / count;
  const double begin = index * length;
  const double end = std::min(begin + length, static_cast<double>(sourceCount));
  for (int i = static_cast<int>(begin); i < sourceCount && i < end; ++i) {
    const double covered = std::min(end, i + 1.0) - std::max(begin, static_cast<double>(i));
    take(static_cast<std::size_t>(i), static_cast<float>(covered / length));
  }
}

void addShrunkRow(const std::uint8_t* source, int sourceWidth, int width, float weight, Row& row) {
  for (int x = 0; x < width; ++x) {
    float* const pixel = &row[static_cast<std::size_t>(x) * Bitmap::bytesPerPixel];
    forEachCovered(x, width, sourceWidth, [&](std::size_t column, float share) {
      for (std::size_t i = 0; i < Bitmap::bytesPerPixel; ++i) {
        pixel[i] += weight * share * static_cast<float>(source[column * Bitmap::bytesPerPixel + i]);
      }
    });
  }
}

}  // namespace

Bitmap downsampled(const Bitmap& bitmap, int width, int height) {
  Bitmap result{width, height, bitmap.scale, {}};
  const std::shared_ptr<std::uint8_t[]> pixels(new std::uint8_t[result.size()]);
  const auto stride = static_cast<std::size_t>(bitmap.width) * Bitmap::bytesPerPixel;
  auto* out = pixels.get();
  Row row(static_cast<std::size_t>(width) * Bitmap::bytesPerPixel);
  for (int y = 0; y < height; ++y) {
    std::fill(row.begin(), row.end(), 0.0F);
    forEachCovered(y, height, bitmap.height, [&](std::size_t line, float share) {
      addShrunkRow(bitmap.pixels.get() + line * stride, bitmap.width, width, share, row);
    });
    for (const float value : row) *out++ = static_cast<std::uint8_t>(std::min(value + 0.5F, 255.0F));
  }
  result.pixels = pixels;
  result.isOpaque = bitmap.isOpaque;
  return result;
}

}  // namespace orrelo
