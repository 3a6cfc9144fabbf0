#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// The memory of an animation's frames, reused after a frame's last owner has released it. Returning it to
/// the system at each frame would cost both the releasing thread and the decoding one more than a tick may.
/// Any thread.
class FrameBuffers : public std::enable_shared_from_this<FrameBuffers> {
 public:
  /// `size` is that of one frame in bytes.
  explicit FrameBuffers(std::size_t size) : size_(size) { free_.reserve(maximumFree); }

  /// A buffer with arbitrary content, which may outlive this object. Throws std::bad_alloc.
  std::shared_ptr<std::uint8_t[]> take();
  /// Returns the buffers that no frame uses to the system.
  void releaseFree();

 private:
  using Buffer = std::unique_ptr<std::uint8_t[]>;

  /// One frame is shown, one is ready and one is being decoded.
  static constexpr std::size_t maximumFree = 3;

  Buffer takeFree();
  void give(Buffer buffer);

  const std::size_t size_;
  std::mutex mutex_;
  std::vector<Buffer> free_;
};

}  // namespace orrelo
