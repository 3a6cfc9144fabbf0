#pragma once

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace orrelo {

/// Keeps accepted events until the store has committed them, so that they survive the end of the process from
/// the moment at which the host's call returns. The kit appends a record for each event and releases it after
/// the commit. Records that an ended process has left are adopted by a later one. Any thread, unless stated
/// otherwise.
class ORRELO_EXPORT EventJournal {
 public:
  /// Identifies a record within this process. Positions ascend in the order of the appends and are never
  /// reused.
  using Position = std::uint64_t;
  static constexpr std::size_t headerSize = 24;

  /// The bytes of an event, which copies share. The content begins after the first `headerSize` bytes, in
  /// which a journal may store what it needs.
  class Record {
   public:
    Record() = default;
    /// `bytes` may belong to a larger allocation, which lives as long as the record.
    Record(std::shared_ptr<char[]> bytes, std::size_t size) : bytes_(std::move(bytes)), size_(size) {}
    /// Copies bytes that begin with a header.
    static Record copyOf(std::string_view bytes) {
      Record record(std::make_shared<char[]>(bytes.size()), bytes.size());
      bytes.copy(record.data(), bytes.size());
      return record;
    }

    explicit operator bool() const { return bytes_ != nullptr; }
    char* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }
    std::string_view view() const { return {bytes_.get(), size_}; }

   private:
    std::shared_ptr<char[]> bytes_;
    std::size_t size_ = 0;
  };

  /// The size of the largest record, with its header.
  static constexpr std::size_t maximumRecordSize = std::size_t{256} * 1024;
  /// The size of all records that are not released, in the journals of all processes together.
  static constexpr std::size_t maximumLiveSize = std::size_t{64} * 1024 * 1024;

  /// Why an event was not accepted.
  enum class Refusal {
    /// The record is larger than `maximumRecordSize`.
    tooLarge,
    /// The journals hold `maximumLiveSize`.
    full,
    /// The file cannot be created or written now: a read-only folder, no space, an error of the device.
    unwritable,
  };

  /// A record of an ended process, which is released by its position.
  struct Adopted {
    Position position;
    Record record;
  };
  /// The records of one ended process, in the order of its appends.
  using Adopter = std::function<void(std::vector<Adopted> records)>;

  virtual ~EventJournal() = default;

  /// Makes what the first append of this process needs, so that it takes no longer than the next ones. Called
  /// on a worker after `Orrelo::initialize`; an append that comes earlier makes it, or waits for it.
  virtual void prepare() = 0;

  /// Writes the record with one system call. It survives the end of the process once this returns its
  /// position; otherwise nothing of it counts as written. `record` must begin with `headerSize` bytes of
  /// arbitrary content; the journal keeps it until it is released, and nobody may change it after the call.
  /// In a forked child the record goes to a journal of the child's own.
  virtual std::variant<Position, Refusal> append(const Record& record) = 0;

  /// Removes records, adopted ones too. Positions that are unknown are ignored. Returns at once; if the
  /// process ends soon afterwards, a record may still be adopted by a later one.
  virtual void release(std::vector<Position> positions) = 0;

  /// What the journal holds for this process.
  struct Usage {
    /// The records that are not released, adopted ones too.
    std::size_t records = 0;
    /// The size of these records; adopted ones count with the size of their files.
    std::size_t bytes = 0;
  };
  /// For Orrelo::diagnostics. Returns at once.
  virtual Usage usage() const { return {}; }

  /// Takes over the journals of ended processes, and repairs its own file if that was removed, shrunk or
  /// replaced. Called at `Orrelo::initialize` and once a minute. `adopt` is called once for each journal that
  /// is taken over, on a thread of the kit; if this process ends, a later one adopts what it has not
  /// released.
  virtual void maintain(Adopter adopt) = 0;
};

}  // namespace orrelo
