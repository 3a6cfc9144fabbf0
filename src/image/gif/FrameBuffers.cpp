#include "image/gif/FrameBuffers.h"

#include <utility>

namespace orrelo {

std::shared_ptr<std::uint8_t[]> FrameBuffers::take() {
  auto buffer = takeFree();
  if (!buffer) buffer = std::make_unique_for_overwrite<std::uint8_t[]>(size_);
  return {buffer.release(), [weak = weak_from_this()](std::uint8_t* bytes) {
            Buffer released(bytes);
            if (const auto self = weak.lock()) self->give(std::move(released));
          }};
}

void FrameBuffers::releaseFree() {
  std::vector<Buffer> released;
  released.reserve(maximumFree);
  const std::lock_guard lock(mutex_);
  released.swap(free_);
}

FrameBuffers::Buffer FrameBuffers::takeFree() {
  const std::lock_guard lock(mutex_);
  if (free_.empty()) return nullptr;
  auto buffer = std::move(free_.back());
  free_.pop_back();
  return buffer;
}

void FrameBuffers::give(Buffer buffer) {
  const std::lock_guard lock(mutex_);
  if (free_.size() < maximumFree) free_.push_back(std::move(buffer));
}

}  // namespace orrelo
