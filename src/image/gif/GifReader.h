#pragma once

#include <cstddef>
#include <cstdint>
#include <gif_lib.h>
#include <memory>
#include <span>
#include <string_view>

namespace orrelo {

/// Reads a GIF file in memory with giflib, from any place. Not thread-safe. Throws std::bad_alloc.
class GifReader {
 public:
  explicit GifReader(std::string_view bytes) : bytes_(bytes) {}
  GifReader(const GifReader&) = delete;
  GifReader& operator=(const GifReader&) = delete;

  /// Reads the file's header and its table of colours; returns false if they are not a GIF's.
  bool open();
  /// giflib's state: the screen, the image that was read last, and their tables of colours. Only after
  /// `open`.
  GifFileType& state() { return *state_; }
  /// The colours of the image that was read last; empty if there are none.
  std::span<const GifColorType> colors() const;

  std::size_t place() const { return place_; }
  void seek(std::size_t place) { place_ = place; }

  /// Reads the description of an image, which begins at the current place. Returns false if it is damaged.
  bool readImage();
  /// The number of bits of a colour index of that image.
  int codeSize() const { return codeSize_; }
  /// Decodes at most the first `count` colour indices of that image. `indices` has room for `count` and
  /// `slack` more; if it is null, the data is only checked, in a time that does not grow with `count`.
  /// Returns false if the data is damaged before that.
  bool readPixels(std::size_t count, std::uint8_t* indices);

  /// In bytes.
  static constexpr std::size_t slack = 8;

 private:
  struct Closing {
    void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
  };
  static int read(GifFileType* file, GifByteType* target, int count);

  std::string_view bytes_;
  std::size_t place_ = 0;
  int codeSize_ = 0;
  std::unique_ptr<GifFileType, Closing> state_;
};

}  // namespace orrelo
