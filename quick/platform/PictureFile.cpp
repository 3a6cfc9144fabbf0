#include "quick/platform/PictureFile.h"

#include <orrelo/platform/Bitmap.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace orrelo::quick {
namespace {

using namespace std::string_view_literals;

using Stripped = std::optional<std::string>;

std::uint8_t byteAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint8_t>(bytes[at]);
}

std::uint32_t bigEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char c : bytes) number = number << 8U | static_cast<std::uint8_t>(c);
  return number;
}

std::uint32_t littleEndian(std::string_view bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8U | byteAt(bytes, i);
  return number;
}

template <std::size_t N>
bool isOneOf(const std::array<std::string_view, N>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

constexpr auto pngSignature = "\x89PNG\r\n\x1A\n"sv;

Stripped stripPng(std::string_view bytes) {
  static constexpr std::array needed{"IHDR"sv, "PLTE"sv, "tRNS"sv, "IDAT"sv, "IEND"sv};
  constexpr std::size_t chunkOverhead = 12;  // the length, the name and the checksum
  std::string stripped(pngSignature);
  for (bytes.remove_prefix(pngSignature.size()); bytes.size() >= chunkOverhead;) {
    const std::size_t length = bigEndian(bytes.substr(0, 4));
    if (length > bytes.size() - chunkOverhead) return std::nullopt;
    const auto name = bytes.substr(4, 4);
    if (isOneOf(needed, name)) stripped += bytes.substr(0, length + chunkOverhead);
    if (name == "IEND") return stripped;
    bytes.remove_prefix(length + chunkOverhead);
  }
  return std::nullopt;
}

namespace jpeg {

constexpr std::uint8_t baseline = 0xC0;
constexpr std::uint8_t extended = 0xC1;
constexpr std::uint8_t progressive = 0xC2;
constexpr std::uint8_t huffmanTables = 0xC4;
constexpr std::uint8_t end = 0xD9;
constexpr std::uint8_t startOfScan = 0xDA;
constexpr std::uint8_t quantization = 0xDB;
constexpr std::uint8_t restartInterval = 0xDD;
constexpr std::uint8_t jfif = 0xE0;
constexpr std::uint8_t exif = 0xE1;
constexpr std::uint8_t adobe = 0xEE;

// A reader processes the whole image for every scan; encoders write about ten scans.
constexpr int maximumScans = 100;

// 0xC4, 0xC8 and 0xCC lie in the range of the frame markers but do not start a frame.
bool isFrame(std::uint8_t marker) {
  return marker == baseline || (marker > 0xC0 && marker <= 0xCF && marker % 4 != 0);
}

// The position of the next marker that starts a segment or ends the image; npos if there is none. Stuffing,
// fill bytes and restart markers are skipped; they belong to the data before that marker.
std::size_t nextMarker(std::string_view bytes, std::size_t from) {
  for (auto at = bytes.find('\xFF', from); at != std::string_view::npos; at = bytes.find('\xFF', at + 1)) {
    if (at + 1 == bytes.size()) break;
    const auto marker = byteAt(bytes, at + 1);
    if (marker > 0x01 && marker != 0xFF && (marker < 0xD0 || marker > 0xD8)) return at;
  }
  return std::string_view::npos;
}

struct FrameHeader {
  bool isProgressive = false;
  std::size_t pixels = 0;
  std::size_t components = 0;
  /// The size of the coefficients of all components, in bytes per pixel.
  double coefficientBytes = 0.0;

  static std::optional<FrameHeader> read(std::uint8_t marker, std::string_view data) {
    if (marker != baseline && marker != extended && marker != progressive) return std::nullopt;
    if (data.size() < 6) return std::nullopt;
    FrameHeader frame{marker == progressive,
                      std::size_t{bigEndian(data.substr(1, 2))} * bigEndian(data.substr(3, 2)),
                      byteAt(data, 5)};
    if (data.size() != 6 + 3 * frame.components) return std::nullopt;
    unsigned across = 1;
    unsigned down = 1;
    unsigned blocks = 0;
    for (std::size_t i = 0; i < frame.components; ++i) {
      const unsigned sampling = byteAt(data, 6 + 3 * i + 1);
      across = std::max(across, sampling >> 4U);
      down = std::max(down, sampling & 0x0FU);
      blocks += (sampling >> 4U) * (sampling & 0x0FU);
    }
    frame.coefficientBytes = 2.0 * blocks / (across * down);
    return frame;
  }

  /// Returns whether a reader stays within the memory limit. It keeps the coefficients of an image with
  /// several scans until the last scan.
  bool fits(std::size_t componentsInScan) const {
    if (!isProgressive && componentsInScan == components) return true;
    constexpr double limit = 2.0 * Bitmap::maximumSize;
    return (coefficientBytes + Bitmap::bytesPerPixel) * static_cast<double>(pixels) <= limit;
  }
};

// The Exif segment contains the orientation, the Adobe segment the colour space of the components.
bool isNeeded(std::uint8_t marker, std::string_view data) {
  static constexpr std::array markers{huffmanTables, startOfScan, quantization, restartInterval, jfif, adobe};
  return isFrame(marker) || std::find(markers.begin(), markers.end(), marker) != markers.end() ||
         (marker == exif && data.starts_with("Exif\0\0"sv));
}

}  // namespace jpeg

// The end marker is required, since a reader fills the missing part of a truncated file with pixels that look
// like a part of the image. Data after the end marker is dropped.
Stripped stripJpeg(std::string_view bytes) {
  std::string stripped(bytes.substr(0, 2));
  std::optional<jpeg::FrameHeader> frame;
  bool hasExif = false;
  int scans = 0;
  for (auto at = jpeg::nextMarker(bytes, 2); at != std::string_view::npos; at = jpeg::nextMarker(bytes, at)) {
    const auto marker = byteAt(bytes, at + 1);
    if (marker == jpeg::end) return scans > 0 ? Stripped(stripped + "\xFF\xD9") : std::nullopt;
    if (bytes.size() < at + 4) return std::nullopt;
    const std::size_t length = bigEndian(bytes.substr(at + 2, 2));
    if (length < 2 || bytes.size() - at - 2 < length) return std::nullopt;
    const auto segment = bytes.substr(at, 2 + length);
    const auto data = segment.substr(4);
    at += segment.size();
    if (jpeg::isFrame(marker)) {
      if (frame) return std::nullopt;
      frame = jpeg::FrameHeader::read(marker, data);
      if (!frame) return std::nullopt;
    }
    if (!jpeg::isNeeded(marker, data) || (marker == jpeg::exif && std::exchange(hasExif, true))) continue;
    stripped += segment;
    if (marker != jpeg::startOfScan) continue;
    const bool isScan = frame && !data.empty() && frame->fits(byteAt(data, 0));
    if (!isScan || ++scans > jpeg::maximumScans) return std::nullopt;
    stripped += bytes.substr(at, jpeg::nextMarker(bytes, at) - at);
  }
  return std::nullopt;
}

// The frames of an animation are in other chunks, which are not kept, so that an animated file is refused.
Stripped stripWebp(std::string_view bytes) {
  static constexpr std::array needed{"VP8X"sv, "ALPH"sv, "VP8 "sv, "VP8L"sv};
  constexpr std::size_t chunkHeader = 8;  // the name and the length
  constexpr std::uint8_t hasAlpha = 0x10;
  std::string stripped = "WEBP";
  for (bytes.remove_prefix(12); bytes.size() >= chunkHeader;) {
    const std::size_t length = littleEndian(bytes.substr(4, 4));
    if (length > bytes.size() - chunkHeader) return std::nullopt;
    const auto padded = std::min(chunkHeader + length + length % 2, bytes.size());
    const auto name = bytes.substr(0, 4);
    if (isOneOf(needed, name)) stripped += bytes.substr(0, padded);
    // Clears the flags of all chunks that are dropped; alpha is the only one that is kept.
    if (name == "VP8X" && length > 0) {
      auto& flags = stripped[stripped.size() - padded + chunkHeader];
      flags = static_cast<char>(static_cast<std::uint8_t>(flags) & hasAlpha);
    }
    if (name.starts_with("VP8") && name != "VP8X") {
      if (stripped.size() % 2 != 0) stripped += '\0';
      std::string size;
      for (unsigned shift = 0; shift < 32; shift += 8) size += static_cast<char>(stripped.size() >> shift);
      return "RIFF" + size + stripped;
    }
    bytes.remove_prefix(padded);
  }
  return std::nullopt;
}

}  // namespace

std::optional<PictureFile> pictureFile(std::string_view bytes) {
  const char* format = nullptr;
  Stripped stripped;
  if (bytes.starts_with(pngSignature)) {
    format = "png";
    stripped = stripPng(bytes);
  } else if (bytes.starts_with("\xFF\xD8\xFF"sv)) {
    format = "jpeg";
    stripped = stripJpeg(bytes);
  } else if (bytes.starts_with("RIFF"sv) && bytes.substr(0, 12).ends_with("WEBP"sv)) {
    format = "webp";
    stripped = stripWebp(bytes);
  }
  return stripped ? std::optional(PictureFile{format, *std::move(stripped)}) : std::nullopt;
}

}  // namespace orrelo::quick
