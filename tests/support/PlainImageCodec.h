#pragma once

#include <orrelo/platform/ImageCodec.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

namespace orrelo::test {

/// A codec of a format that tests can write by hand: "IMG", the width, the height, and one value for every
/// byte of every pixel; a byte each.
class PlainImageCodec final : public ImageCodec {
 public:
  static std::string file(std::uint8_t width, std::uint8_t height, std::uint8_t value = 0x7F) {
    return {'I', 'M', 'G', static_cast<char>(width), static_cast<char>(height), static_cast<char>(value)};
  }

  std::optional<Bitmap> decode(std::string_view bytes) override {
    ++decodes;
    if (bytes.size() < 6 || !bytes.starts_with("IMG")) return std::nullopt;
    Bitmap bitmap{static_cast<unsigned char>(bytes[3]), static_cast<unsigned char>(bytes[4]), 1.0, {}};
    auto* const pixels = new std::uint8_t[bitmap.size()];
    std::memset(pixels, bytes[5], bitmap.size());
    bitmap.pixels.reset(pixels);
    return bitmap;
  }
  std::optional<std::string> encode(const Bitmap& bitmap) override {
    if (bitmap.size() == 0) return std::nullopt;
    return file(static_cast<std::uint8_t>(bitmap.width), static_cast<std::uint8_t>(bitmap.height),
                bitmap.pixels[0]);
  }

  std::atomic<int> decodes = 0;
};

}  // namespace orrelo::test
