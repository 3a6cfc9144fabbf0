#pragma once

#include <orrelo/platform/EventJournal.h>

#include <cstddef>
#include <memory>
#include <utility>

namespace orrelo {

/// The memory in which a thread builds a record whose size is not known before. Small records of a thread
/// share blocks: memory that one thread allocates and another one frees costs the host's call far more than
/// the bytes that a block keeps alive for its last record. One buffer at a time for each thread.
class RecordBuffer {
 public:
  RecordBuffer();

  /// Appends `size` bytes of arbitrary content and returns them; valid until the next call.
  char* extend(std::size_t size) {
    if (size > static_cast<std::size_t>(end_ - next_)) grow(size);
    return std::exchange(next_, next_ + size);
  }

  /// The record with all bytes. The buffer must not be used afterwards.
  EventJournal::Record finish();

 private:
  void grow(std::size_t size);

  char* begin_ = nullptr;
  char* next_ = nullptr;
  char* end_ = nullptr;
  /// Holds the bytes that do not fit into the rest of the thread's block.
  std::unique_ptr<char[]> overflow_;
};

}  // namespace orrelo
