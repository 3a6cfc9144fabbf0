#pragma once

#include "image/gif/FrameBuffers.h"
#include "image/gif/GifFile.h"

#include <orrelo/platform/Bitmap.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

class GifReader;

/// Draws the frames of a file. In ascending order each frame costs the decoding of its own pixels and those
/// of the frames that were left out; going back starts from the nearest frame that needs no earlier one. Not
/// thread-safe; needs the memory of about one bitmap.
class GifCanvas {
 public:
  explicit GifCanvas(std::shared_ptr<const GifFile> file);
  GifCanvas(const GifCanvas&) = delete;
  GifCanvas& operator=(const GifCanvas&) = delete;
  ~GifCanvas();

  /// The whole canvas after the frame was drawn; areas without a colour are transparent. Nullopt if the
  /// memory is exhausted.
  std::optional<Bitmap> frame(std::size_t index);
  /// Releases the memory that is only reused, and keeps what the next frame needs.
  void releaseUnused();
  /// The number of frames whose pixels have been decoded.
  int decodeCount() const { return decodeCount_; }

 private:
  /// A pixel of a bitmap.
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
  /// Null until the first frame is drawn.
  std::unique_ptr<GifReader> reader_;
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
