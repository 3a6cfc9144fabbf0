#include "image/gif/GifCanvas.h"

#include "image/gif/GifReader.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace orrelo {

GifCanvas::GifCanvas(std::shared_ptr<const GifFile> file)
    : file_(std::move(file)),
      buffers_(std::make_shared<FrameBuffers>(Bitmap::sizeOf(file_->width(), file_->height()))) {}

GifCanvas::~GifCanvas() = default;

std::optional<Bitmap> GifCanvas::frame(std::size_t index) {
  try {
    return draw(index);
  } catch (const std::bad_alloc&) {
    drawn_.reset();
    return std::nullopt;
  }
}

Bitmap GifCanvas::draw(std::size_t index) {
  const auto& frames = file_->frames();
  canvas_.resize(static_cast<std::size_t>(file_->width()) * static_cast<std::size_t>(file_->height()));
  if (drawn_ != index) {
    auto next = index;
    while (!frames[next].startsAnew && next != drawn_) --next;
    if (next == drawn_) ++next;
    for (; next <= index; ++next) {
      if (frames[next].startsAnew) {
        std::fill(canvas_.begin(), canvas_.end(), Pixel{0});
      } else {
        dispose(frames[next - 1]);
      }
      drawn_.reset();  // in case that drawing fails
      if (frames[next].disposal == GifDisposal::previous) keepForRestoring(frames[next]);
      drawPixels(frames[next]);
      drawn_ = next;
    }
  }
  Bitmap bitmap{file_->width(), file_->height(), 1.0, {}};
  const auto pixels = buffers_->take();
  std::memcpy(pixels.get(), canvas_.data(), bitmap.size());
  bitmap.pixels = pixels;
  bitmap.isOpaque = std::find(canvas_.begin(), canvas_.end(), Pixel{0}) == canvas_.end();
  return bitmap;
}

void GifCanvas::releaseUnused() {
  buffers_->releaseFree();
  indices_ = {};
  const bool restores = drawn_ && file_->frames()[*drawn_].disposal == GifDisposal::previous;
  if (!restores) covered_ = {};
}

GifCanvas::Area GifCanvas::areaOf(const GifFrame& frame) const {
  return {std::min(frame.left, file_->width()), std::min(frame.top, file_->height()),
          std::min(frame.left + frame.width, file_->width()),
          std::min(frame.top + frame.height, file_->height())};
}

// Calls `change` with the beginning of each row of the frame's area and its length.
template <class RowChange>
void GifCanvas::changeRows(const GifFrame& frame, RowChange change) {
  const auto area = areaOf(frame);
  for (int y = area.top; y < area.bottom; ++y) {
    change(canvas_.data() + static_cast<std::ptrdiff_t>(y) * file_->width() + area.left,
           area.right - area.left);
  }
}

void GifCanvas::dispose(const GifFrame& frame) {
  if (frame.disposal == GifDisposal::background) {
    changeRows(frame, [](Pixel* row, int count) { std::fill_n(row, count, Pixel{0}); });
  }
  if (frame.disposal == GifDisposal::previous) {
    const auto* from = covered_.data();
    changeRows(frame, [&](Pixel* row, int count) {
      std::copy_n(from, count, row);
      from += count;
    });
  }
}

void GifCanvas::keepForRestoring(const GifFrame& frame) {
  covered_.clear();
  changeRows(frame, [&](const Pixel* row, int count) { covered_.insert(covered_.end(), row, row + count); });
}

void GifCanvas::takeColors(const GifFrame& frame) {
  std::fill(std::begin(colors_), std::end(colors_), Pixel{0});
  auto* target = std::begin(colors_);
  for (const auto& color : reader_->colors()) {
    *target++ = 0xFF000000U | Pixel{color.Red} << 16U | Pixel{color.Green} << 8U | Pixel{color.Blue};
  }
  if (frame.transparent >= 0) colors_[frame.transparent] = 0;
}

// The walk has read all of the frame before, so that nothing here fails but for want of memory.
void GifCanvas::drawPixels(const GifFrame& frame) {
  if (!reader_) {
    auto reader = std::make_unique<GifReader>(file_->bytes());
    if (!reader->open()) throw std::bad_alloc();
    reader_ = std::move(reader);
  }
  reader_->seek(frame.place);
  if (!reader_->readImage()) throw std::bad_alloc();
  ++decodeCount_;
  const auto area = areaOf(frame);
  if (area.left == area.right || area.top == area.bottom) return;
  takeColors(frame);
  const bool isInterlaced = reader_->state().Image.Interlace;
  // The rows below the canvas need not be decoded, unless those above follow after them.
  const int height = isInterlaced ? frame.height : area.bottom - area.top;
  const auto count = static_cast<std::size_t>(height) * static_cast<std::size_t>(frame.width);
  indices_.resize(std::max(indices_.size(), count + GifReader::slack));
  reader_->readPixels(count, indices_.data());
  const auto* row = indices_.data();
  const auto drawRows = [&](int first, int step) {
    for (int y = first; y < height; y += step, row += frame.width) drawRow(frame, y, row);
  };
  if (!isInterlaced) return drawRows(0, 1);
  for (const auto& [first, step] : {std::pair(0, 8), {4, 8}, {2, 4}, {1, 2}}) drawRows(first, step);
}

void GifCanvas::drawRow(const GifFrame& frame, int y, const std::uint8_t* indices) {
  const auto area = areaOf(frame);
  if (frame.top + y >= area.bottom) return;
  auto* target = canvas_.data() + static_cast<std::ptrdiff_t>(frame.top + y) * file_->width() + area.left;
  const auto* const end = indices + (area.right - area.left);
  for (; indices < end; ++indices, ++target) {
    const Pixel color = colors_[*indices];
    *target = color != 0 ? color : *target;
  }
}

}  // namespace orrelo
