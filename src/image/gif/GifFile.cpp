#include "image/gif/GifFile.h"

#include "image/gif/GifReader.h"

#include <orrelo/platform/Bitmap.h>

#include <new>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumPixels = Bitmap::maximumSize / Bitmap::bytesPerPixel;

/// At most 32 bits, as a side has 16. The size in bytes can exceed a size_t of 32 bits.
std::size_t pixelCount(int width, int height) {
  return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

GifDisposal disposalOf(const GraphicsControlBlock& block) {
  switch (block.DisposalMode) {
    case DISPOSE_BACKGROUND:
      return GifDisposal::background;
    case DISPOSE_PREVIOUS:
      return GifDisposal::previous;
    default:
      return GifDisposal::keep;
  }
}

}  // namespace

// Reads a file's blocks from its beginning.
class GifFile::Walk {
 public:
  explicit Walk(GifFile& file) : file_(file), reader_(file.bytes()) {}

  bool readScreen() {
    if (!isGif(file_.bytes()) || !reader_.open()) return false;
    file_.width_ = reader_.state().SWidth;
    file_.height_ = reader_.state().SHeight;
    const auto pixels = pixelCount(file_.width_, file_.height_);
    return pixels > 0 && pixels <= maximumPixels;
  }

  /// Stops at the first block that cannot be read.
  void readFrames() {
    auto* const gif = &reader_.state();
    GifRecordType type = UNDEFINED_RECORD_TYPE;
    while (DGifGetRecordType(gif, &type) == GIF_OK && file_.frames_.size() <= maximumFrames) {
      if (type == EXTENSION_RECORD_TYPE ? !readExtension() : type != IMAGE_DESC_RECORD_TYPE || !readImage()) {
        return;
      }
    }
  }

 private:
  bool readExtension() {
    int label = 0;
    GifByteType* block = nullptr;
    GraphicsControlBlock control;
    if (DGifGetExtension(&reader_.state(), &label, &block) != GIF_OK) return false;
    if (label == GRAPHICS_EXT_FUNC_CODE && block != nullptr &&
        DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
      control_.disposal = disposalOf(control);
      control_.delay = control.DelayTime;
      control_.transparent = control.TransparentColor;
    }
    while (block != nullptr) {
      if (DGifGetExtensionNext(&reader_.state(), &block) != GIF_OK) return false;
    }
    return true;
  }

  bool readImage() {
    auto frame = std::exchange(control_, {});
    frame.place = reader_.place();
    if (!reader_.readImage()) return false;
    const auto& image = reader_.state().Image;
    frame.left = image.Left;
    frame.top = image.Top;
    frame.width = image.Width;
    frame.height = image.Height;
    const auto pixels = pixelCount(frame.width, frame.height);
    if (pixels > maximumPixels || !reader_.readPixels(pixels, nullptr)) return false;
    frame.startsAnew = startsAnew(frame);
    file_.frames_.push_back(frame);
    return skipData();
  }

  bool skipData() {
    GifByteType* block = nullptr;
    do {
      if (DGifGetCodeNext(&reader_.state(), &block) != GIF_OK) return false;
    } while (block != nullptr);
    return true;
  }

  bool covers(const GifFrame& frame) const {
    return frame.left == 0 && frame.top == 0 && frame.width >= file_.width_ && frame.height >= file_.height_;
  }
  bool startsAnew(const GifFrame& frame) const {
    if (file_.frames_.empty()) return true;
    const auto& former = file_.frames_.back();
    if (former.disposal == GifDisposal::background && covers(former)) return true;
    const bool isOpaque = frame.transparent < 0 && reader_.colors().size() >= std::size_t{1}
                                                                                  << reader_.codeSize();
    return isOpaque && covers(frame) && frame.disposal != GifDisposal::previous;
  }

  GifFile& file_;
  GifReader reader_;
  /// The next frame's description, as far as the last graphic control extension gives it.
  GifFrame control_;
};

std::optional<GifFile> GifFile::read(Data data) {
  if (!data || data->size() > maximumFileSize) return std::nullopt;
  try {
    GifFile file;
    file.data_ = std::move(data);
    Walk walk(file);
    if (!walk.readScreen()) return std::nullopt;
    walk.readFrames();
    if (file.frames_.empty() || file.frames_.size() > maximumFrames) return std::nullopt;
    return file;
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

}  // namespace orrelo
