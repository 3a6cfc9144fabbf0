#include "image/gif/GifReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace orrelo {
namespace {

constexpr std::size_t tableSize = 4096;

// The run of pixels that a code stands for, as a part of the pixels before.
struct Run {
  std::uint32_t from;
  std::uint32_t length;
};

// Copies in steps that may write up to `slack` bytes behind the run. A run that reaches its own copy repeats
// itself and is copied byte by byte.
void copy(std::uint8_t* pixels, std::size_t to, Run run) {
  if (run.from + run.length > to) {
    for (std::size_t i = 0; i < run.length; ++i) pixels[to + i] = pixels[run.from + i];
    return;
  }
  for (std::size_t i = 0; i < run.length; i += GifReader::slack) {
    std::memmove(pixels + to + i, pixels + run.from + i, GifReader::slack);  // a step may reach its own copy
  }
}

}  // namespace

int GifReader::read(GifFileType* file, GifByteType* target, int count) {
  auto& self = *static_cast<GifReader*>(file->UserData);
  const auto wanted = static_cast<std::size_t>(std::max(count, 0));
  const auto available = std::min(wanted, self.bytes_.size() - self.place_);
  std::memcpy(target, self.bytes_.data() + self.place_, available);
  self.place_ += available;
  return static_cast<int>(available);
}

bool GifReader::open() {
  place_ = 0;
  int error = D_GIF_SUCCEEDED;
  state_.reset(DGifOpen(this, &GifReader::read, &error));
  if (error == D_GIF_ERR_NOT_ENOUGH_MEM) throw std::bad_alloc();
  return state_ != nullptr;  // it has read the screen too
}

std::span<const GifColorType> GifReader::colors() const {
  const auto* const map = state_->Image.ColorMap != nullptr ? state_->Image.ColorMap : state_->SColorMap;
  if (map == nullptr) return {};
  return {map->Colors, static_cast<std::size_t>(map->ColorCount)};
}

bool GifReader::readImage() {
  if (DGifGetImageHeader(state_.get()) != GIF_OK) return false;
  codeSize_ = static_cast<unsigned char>(bytes_[place_ - 1]);  // the byte before the data
  return codeSize_ >= 2 && codeSize_ <= 8;
}

// giflib reads the codes; its own expansion works pixel by pixel and takes several times as long. A code's
// run of pixels is the one before, which stands in the image already, and one pixel more.
bool GifReader::readPixels(std::size_t count, std::uint8_t* indices) {
  std::array<Run, tableSize> table;
  const auto clear = std::size_t{1} << codeSize_;
  std::size_t next = clear + 2;
  Run last{0, 0};
  int code = 0;
  for (std::size_t done = 0; done < count; done += last.length) {
    do {
      if (DGifGetLZCodes(state_.get(), &code) != GIF_OK || code < 0) return false;
      if (static_cast<std::size_t>(code) != clear) break;
      next = clear + 2;
      last.length = 0;
    } while (true);
    const auto entry = static_cast<std::size_t>(code);
    if (last.length > 0 && next < tableSize) table[next++] = {last.from, last.length + 1};
    if (entry >= next) return false;
    const auto place = static_cast<std::uint32_t>(done);
    if (entry < clear) {
      if (indices != nullptr) indices[done] = static_cast<std::uint8_t>(entry);
      last = {place, 1};
      continue;
    }
    auto run = table[entry];
    if (indices != nullptr) {
      run.length = static_cast<std::uint32_t>(std::min<std::size_t>(run.length, count - done));
      copy(indices, done, run);
    }
    last = {place, run.length};
  }
  return true;
}

}  // namespace orrelo
