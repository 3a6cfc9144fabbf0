#include "barcode/BarcodePicture.h"

#include "barcode/Code128.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>
#include <zlib.h>

namespace orrelo::devservice {

namespace {

constexpr std::string_view prefix = "/barcodes/";
constexpr std::string_view ending = ".png";

// Sizes in pixels.
constexpr std::size_t module = 4;
constexpr std::size_t quietZone = 10 * module;  // the narrowest that readers accept
constexpr std::size_t margin = 24;
constexpr std::size_t barHeight = 160;
constexpr std::size_t dot = 4;  // a digit is drawn with such dots
constexpr std::size_t digitWidth = 5;
constexpr std::size_t digitHeight = 7;
constexpr std::size_t digitAdvance = (digitWidth + 2) * dot;

/// The rows of each digit, the leftmost dot in the highest of five bits.
constexpr std::array<std::array<unsigned, digitHeight>, 10> digitDots{{{14, 17, 19, 21, 25, 17, 14},
                                                                       {4, 12, 4, 4, 4, 4, 14},
                                                                       {14, 17, 1, 2, 4, 8, 31},
                                                                       {31, 2, 4, 2, 1, 17, 14},
                                                                       {2, 6, 10, 18, 31, 2, 2},
                                                                       {31, 16, 30, 1, 1, 17, 14},
                                                                       {6, 8, 16, 30, 17, 17, 14},
                                                                       {31, 1, 2, 4, 8, 8, 8},
                                                                       {14, 17, 17, 14, 17, 17, 14},
                                                                       {14, 17, 17, 15, 1, 2, 12}}};

/// A white picture that takes black rectangles, one byte a pixel.
class Canvas {
 public:
  Canvas(std::size_t width, std::size_t height)
      : width_(width), height_(height), pixels_(width * height, '\xff') {}

  void fill(std::size_t x, std::size_t y, std::size_t width, std::size_t height) {
    for (std::size_t row = y; row < y + height; ++row) pixels_.replace(row * width_ + x, width, width, '\0');
  }
  std::size_t width() const { return width_; }
  std::string png() const;

 private:
  std::size_t width_;
  std::size_t height_;
  std::string pixels_;
};

std::string bigEndian(std::size_t number) {
  return {static_cast<char>(number >> 24U), static_cast<char>(number >> 16U), static_cast<char>(number >> 8U),
          static_cast<char>(number)};
}

std::string chunk(const std::string& type, const std::string& data) {
  const auto content = type + data;
  const auto check =
      crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
  return bigEndian(data.size()) + content + bigEndian(check);
}

std::string deflated(const std::string& bytes) {
  auto size = compressBound(static_cast<uLong>(bytes.size()));
  std::string result(size, '\0');
  if (compress(reinterpret_cast<Bytef*>(result.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
               static_cast<uLong>(bytes.size())) != Z_OK) {
    throw std::runtime_error("the picture of a barcode cannot be compressed");
  }
  result.resize(size);
  return result;
}

std::string Canvas::png() const {
  std::string rows;
  for (std::size_t row = 0; row < height_; ++row) {
    rows += '\0';  // this row is not filtered
    rows.append(pixels_, row * width_, width_);
  }
  const std::string format{8, 0, 0, 0, 0};  // 8 bits of grey, and the only values of the other three
  return "\x89PNG\r\n\x1a\n" + chunk("IHDR", bigEndian(width_) + bigEndian(height_) + format) +
         chunk("IDAT", deflated(rows)) + chunk("IEND", "");
}

void drawDigits(Canvas& canvas, std::string_view digits, std::size_t top) {
  auto left = (canvas.width() - digits.size() * digitAdvance) / 2 + dot;
  for (const char digit : digits) {
    const auto& dots = digitDots.at(static_cast<std::size_t>(digit - '0'));
    for (std::size_t row = 0; row < digitHeight; ++row) {
      for (std::size_t column = 0; column < digitWidth; ++column) {
        if ((dots.at(row) >> (digitWidth - 1 - column) & 1U) == 0) continue;
        canvas.fill(left + column * dot, top + row * dot, dot, dot);
      }
    }
    left += digitAdvance;
  }
}

}  // namespace

std::string BarcodePicture::pathOf(std::string_view digits) {
  return std::string(prefix).append(digits).append(ending);
}

std::optional<std::string> BarcodePicture::at(std::string_view path) {
  if (!path.starts_with(prefix) || !path.ends_with(ending)) return std::nullopt;
  const auto digits = path.substr(prefix.size(), path.size() - prefix.size() - ending.size());
  if (!Code128::canHold(digits)) return std::nullopt;
  const auto modules = Code128::modules(digits);
  Canvas canvas(modules.size() * module + 2 * quietZone,
                margin + barHeight + margin + digitHeight * dot + margin);
  for (std::size_t at = 0; at < modules.size(); ++at) {
    if (modules[at]) canvas.fill(quietZone + at * module, margin, module, barHeight);
  }
  drawDigits(canvas, digits, margin + barHeight + margin);
  return canvas.png();
}

}  // namespace orrelo::devservice
