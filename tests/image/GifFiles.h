#pragma once

#include "image/Image.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace orrelo::test {

/// A frame of a GIF that a test describes. A digit of a row is a colour of the file's table, '0' to '3'.
struct GifFrameText {
  std::vector<std::string> rows;
  int left = 0;
  int top = 0;
  int disposal = 0;
  int transparent = -1;
  int delay = 10;
  /// The frame has a table of its own, whose colours are 'a' to 'd'.
  bool hasColors = false;
  bool isInterlaced = false;
  bool hasControl = true;
};

/// The bytes of a GIF file with the frames.
inline std::string gifFile(int width, int height, const std::vector<GifFrameText>& frames) {
  std::string bytes;
  const auto byte = [&](int value) { bytes += static_cast<char>(value); };
  const auto word = [&](int value) {
    byte(value & 0xFF);
    byte(value >> 8);
  };
  const auto colors = [&](char first) {
    for (int i = 0; i < 4; ++i) bytes += std::string(3, static_cast<char>(first + i));
  };
  bytes = "GIF89a";
  word(width);
  word(height);
  bytes += std::string("\x81\0\0", 3);
  colors('0');
  for (const auto& frame : frames) {
    if (frame.hasControl) {
      bytes += "\x21\xF9\x04";
      byte(frame.disposal << 2 | (frame.transparent >= 0 ? 1 : 0));
      word(frame.delay);
      byte(std::max(frame.transparent, 0));
      byte(0);
    }
    byte(0x2C);
    for (const int value : {frame.left, frame.top, static_cast<int>(frame.rows[0].size()),
                            static_cast<int>(frame.rows.size())}) {
      word(value);
    }
    byte((frame.hasColors ? 0x81 : 0) | (frame.isInterlaced ? 0x40 : 0));
    if (frame.hasColors) colors('a');
    // Three bits for each code: "clear", a colour, "clear", a colour, … and the end.
    std::string data;
    unsigned bits = 0;
    int count = 0;
    const auto code = [&](unsigned value) {
      bits |= value << count;
      for (count += 3; count >= 8; count -= 8, bits >>= 8) data += static_cast<char>(bits & 0xFF);
    };
    for (const auto& row : frame.rows) {
      for (const char pixel : row) {
        code(4);
        code(static_cast<unsigned>(pixel - '0'));
      }
    }
    code(5);
    if (count > 0) data += static_cast<char>(bits);
    byte(2);
    for (std::size_t i = 0; i < data.size(); i += 255) {
      const auto part = data.substr(i, 255);
      byte(static_cast<int>(part.size()));
      bytes += part;
    }
    byte(0);
  }
  return bytes + ";";
}

/// The rows of a bitmap of such a file, with '.' for transparent pixels, separated by '/'.
inline std::string textOf(const Bitmap& bitmap) {
  std::string text;
  for (std::size_t i = 0; i < bitmap.size(); i += 4) {
    if (i > 0 && i / 4 % static_cast<std::size_t>(bitmap.width) == 0) text += '/';
    std::uint32_t color = 0;
    std::memcpy(&color, bitmap.pixels.get() + i, sizeof(color));
    text += color == 0 ? '.' : static_cast<char>(color >> 16U & 0xFFU);
  }
  return text;
}

/// A file of pictures of one pixel, which is '0', '1', '2', …; `delays` are in hundredths of a second.
inline std::string blinkingGif(const std::vector<int>& delays) {
  std::vector<GifFrameText> frames;
  for (const int delay : delays) {
    frames.push_back({.rows = {std::string(1, static_cast<char>('0' + frames.size() % 4))}, .delay = delay});
  }
  return gifFile(1, 1, frames);
}

}  // namespace orrelo::test
