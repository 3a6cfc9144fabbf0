#pragma once

#include "image/gif/FrameBuffers.h"
#include "image/gif/GifFile.h"
#include "image/gif/GifReader.h"
#include "platform/Bitmap.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// Draws the frames of a file. In ascending order each frame costs the decoding of its own pixels and those
/// of the frames that were left out; going back starts from the nearest frame that needs no earlier one. Not
/// thread-safe; needs the memory of about one bitmap.
class GifCanvas {
 public:
  explicit GifCanvas(std::shared_ptr<const GifFile> file);
  GifCanvas(const GifCanvas&) = delete;
  GifCanvas& operator=(const GifCanvas&) = delete;

  /// The whole canvas after the frame was drawn; areas without a colour are transparent. Nullopt if the
  /// memory is exhausted.
  std::optional<Bitmap> frame(std::size_t index);
  /// The number of frames whose pixels have been decoded.
  int decodeCount() const { return decodeCount_; }

 private:
  /// Four bytes of a bitmap.
  using Pixel = std::uint32_t;
  struct Area {
    int left, top, right, bottom;
  };
  Bitmap draw(std::size_t index);
  /// The frame's area within the canvas; may be empty.
  Area areaOf(const GifFrame& frame) const;
  template <class RowChange>
  void changeRows(const GifFrame& frame, RowChange change);
  void dispose(const GifFrame& frame);
  void keepForRestoring(const GifFrame& frame);
  void drawPixels(const GifFrame& frame);
  void drawRow(const GifFrame& frame, int y, const std::uint8_t* indices);
  void takeColors(const GifFrame& frame);

  std::shared_ptr<const GifFile> file_;
  std::shared_ptr<FrameBuffers> buffers_;
  GifReader reader_;
  bool isOpen_ = false;
  std::vector<Pixel> canvas_;
  /// The pixels below a frame that are restored before the next one.
  std::vector<Pixel> covered_;
  /// The colour indices of one frame.
  std::vector<std::uint8_t> indices_;
  /// Zero for an index that leaves the canvas as it is.
  Pixel colors_[256] = {};
  std::optional<std::size_t> drawn_;
  int decodeCount_ = 0;
};

}  // namespace orrelo
