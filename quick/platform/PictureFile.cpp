#include "quick/platform/PictureFile.h"

#include "platform/Bitmap.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace orrelo::quick {
namespace {

using namespace std::string_view_literals;

using Plain = std::optional<std::string>;

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

constexpr auto pngMark = "\x89PNG\r\n\x1A\n"sv;

Plain plainPng(std::string_view bytes) {
  static constexpr std::array needed{"IHDR"sv, "PLTE"sv, "tRNS"sv, "IDAT"sv, "IEND"sv};
  constexpr std::size_t frame = 12;  // the length, the name and the checksum
  std::string plain(pngMark);
  for (bytes.remove_prefix(pngMark.size()); bytes.size() >= frame;) {
    const std::size_t length = bigEndian(bytes.substr(0, 4));
    if (length > bytes.size() - frame) return std::nullopt;
    const auto name = bytes.substr(4, 4);
    if (isOneOf(needed, name)) plain += bytes.substr(0, length + frame);
    if (name == "IEND") return plain;
    bytes.remove_prefix(length + frame);
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

// Readers go over the whole picture with every scan; encoders write about ten.
constexpr int maximumScans = 100;

// 0xC4, 0xC8 and 0xCC lie among the frames' marks, and begin none.
bool isFrame(std::uint8_t mark) {
  return mark == baseline || (mark > 0xC0 && mark <= 0xCF && mark % 4 != 0);
}

// Where the next mark stands that has a segment, or the end; npos where there is none. Stuffing, fill bytes
// and restarts are part of what lies before it.
std::size_t nextMark(std::string_view bytes, std::size_t from) {
  for (auto at = bytes.find('\xFF', from); at != std::string_view::npos; at = bytes.find('\xFF', at + 1)) {
    if (at + 1 == bytes.size()) break;
    const auto mark = byteAt(bytes, at + 1);
    if (mark > 0x01 && mark != 0xFF && (mark < 0xD0 || mark > 0xD8)) return at;
  }
  return std::string_view::npos;
}

// What a frame's header says.
struct Frame {
  bool isProgressive = false;
  std::size_t pixels = 0;
  std::size_t components = 0;
  /// Of the coefficients of all components, for each pixel.
  double coefficientBytes = 0.0;

  static std::optional<Frame> read(std::uint8_t mark, std::string_view data) {
    if (mark != baseline && mark != extended && mark != progressive) return std::nullopt;
    if (data.size() < 6) return std::nullopt;
    Frame frame{mark == progressive, std::size_t{bigEndian(data.substr(1, 2))} * bigEndian(data.substr(3, 2)),
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

  /// The coefficients of a picture that comes in several scans are kept until the last one.
  bool fits(std::size_t componentsInScan) const {
    if (!isProgressive && componentsInScan == components) return true;
    constexpr double limit = 2.0 * Bitmap::maximumSize;
    return (coefficientBytes + Bitmap::bytesPerPixel) * static_cast<double>(pixels) <= limit;
  }
};

// The Exif segment tells which side is up, the Adobe one what the components are.
bool isNeeded(std::uint8_t mark, std::string_view data) {
  static constexpr std::array marks{huffmanTables, startOfScan, quantization, restartInterval, jfif, adobe};
  return isFrame(mark) || std::find(marks.begin(), marks.end(), mark) != marks.end() ||
         (mark == exif && data.starts_with("Exif\0\0"sv));
}

}  // namespace jpeg

// What a reader leaves out because the file ends too soon would look like a part of the picture: there must
// be an end. Whatever comes behind it is none of the picture's.
Plain plainJpeg(std::string_view bytes) {
  std::string plain(bytes.substr(0, 2));
  std::optional<jpeg::Frame> frame;
  bool hasExif = false;
  int scans = 0;
  for (auto at = jpeg::nextMark(bytes, 2); at != std::string_view::npos; at = jpeg::nextMark(bytes, at)) {
    const auto mark = byteAt(bytes, at + 1);
    if (mark == jpeg::end) return scans > 0 ? Plain(plain + "\xFF\xD9") : std::nullopt;
    if (bytes.size() < at + 4) return std::nullopt;
    const std::size_t length = bigEndian(bytes.substr(at + 2, 2));
    if (length < 2 || bytes.size() - at - 2 < length) return std::nullopt;
    const auto segment = bytes.substr(at, 2 + length);
    const auto data = segment.substr(4);
    at += segment.size();
    if (jpeg::isFrame(mark)) {
      if (frame) return std::nullopt;
      frame = jpeg::Frame::read(mark, data);
      if (!frame) return std::nullopt;
    }
    if (!jpeg::isNeeded(mark, data) || (mark == jpeg::exif && std::exchange(hasExif, true))) continue;
    plain += segment;
    if (mark != jpeg::startOfScan) continue;
    const bool isScan = frame && !data.empty() && frame->fits(byteAt(data, 0));
    if (!isScan || ++scans > jpeg::maximumScans) return std::nullopt;
    plain += bytes.substr(at, jpeg::nextMark(bytes, at) - at);
  }
  return std::nullopt;
}

// The frames of one that moves are in chunks of their own, none of which is kept.
Plain plainWebp(std::string_view bytes) {
  static constexpr std::array needed{"VP8X"sv, "ALPH"sv, "VP8 "sv, "VP8L"sv};
  constexpr std::size_t frame = 8;  // the name and the length
  constexpr std::uint8_t hasAlpha = 0x10;
  std::string plain = "WEBP";
  for (bytes.remove_prefix(12); bytes.size() >= frame;) {
    const std::size_t length = littleEndian(bytes.substr(4, 4));
    if (length > bytes.size() - frame) return std::nullopt;
    const auto padded = std::min(frame + length + length % 2, bytes.size());
    const auto name = bytes.substr(0, 4);
    if (isOneOf(needed, name)) plain += bytes.substr(0, padded);
    // Of what the file has beside its pixels, nothing is left but alpha.
    if (name == "VP8X" && length > 0) {
      auto& flags = plain[plain.size() - padded + frame];
      flags = static_cast<char>(static_cast<std::uint8_t>(flags) & hasAlpha);
    }
    if (name.starts_with("VP8") && name != "VP8X") {
      if (plain.size() % 2 != 0) plain += '\0';
      std::string size;
      for (unsigned shift = 0; shift < 32; shift += 8) size += static_cast<char>(plain.size() >> shift);
      return "RIFF" + size + plain;
    }
    bytes.remove_prefix(padded);
  }
  return std::nullopt;
}

}  // namespace

std::optional<PictureFile> pictureFile(std::string_view bytes) {
  const char* format = nullptr;
  Plain plain;
  if (bytes.starts_with(pngMark)) {
    format = "png";
    plain = plainPng(bytes);
  } else if (bytes.starts_with("\xFF\xD8\xFF"sv)) {
    format = "jpeg";
    plain = plainJpeg(bytes);
  } else if (bytes.starts_with("RIFF"sv) && bytes.substr(0, 12).ends_with("WEBP"sv)) {
    format = "webp";
    plain = plainWebp(bytes);
  }
  return plain ? std::optional(PictureFile{format, *std::move(plain)}) : std::nullopt;
}

}  // namespace orrelo::quick
