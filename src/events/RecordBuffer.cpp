#include "events/RecordBuffer.h"

#include <algorithm>
#include <string_view>

namespace orrelo {
namespace {

constexpr std::size_t blockSize = 4096;
/// The rest of a block at which a new one is begun. Most records fit into it.
constexpr std::size_t minimumRest = 512;
constexpr std::size_t maximumSmallSize = blockSize / 4;

struct Block {
  std::shared_ptr<char[]> memory;
  std::size_t used = blockSize;

  std::size_t rest() const { return blockSize - used; }
  void renew() {
    memory = std::make_shared_for_overwrite<char[]>(blockSize);
    used = 0;
  }
  EventJournal::Record take(std::size_t size) {
    char* const start = memory.get() + std::exchange(used, used + size);
    return {std::shared_ptr<char[]>(memory, start), size};
  }
};

/// True once the thread's block is destroyed: a static object of the host may report an event even then.
thread_local bool isBlockGone = false;

struct OwnBlock : Block {
  ~OwnBlock() { isBlockGone = true; }
};
thread_local OwnBlock block;

}  // namespace

RecordBuffer::RecordBuffer() {
  if (isBlockGone) return;
  if (block.rest() < minimumRest) block.renew();
  begin_ = next_ = block.memory.get() + block.used;
  end_ = begin_ + block.rest();
}

EventJournal::Record RecordBuffer::finish() {
  const auto size = static_cast<std::size_t>(next_ - begin_);
  if (!overflow_) return block.take(size);
  if (size > maximumSmallSize || isBlockGone) return EventJournal::Record::copyOf({begin_, size});
  block.renew();
  auto record = block.take(size);
  std::copy(begin_, next_, record.data());
  return record;
}

void RecordBuffer::grow(std::size_t size) {
  const auto used = static_cast<std::size_t>(next_ - begin_);
  const auto capacity = std::max(2 * used, used + size);
  auto larger = std::make_unique_for_overwrite<char[]>(capacity);
  next_ = std::copy(begin_, next_, larger.get());
  overflow_ = std::move(larger);
  begin_ = overflow_.get();
  end_ = begin_ + capacity;
}

}  // namespace orrelo
