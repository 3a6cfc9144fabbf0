#include "platform/journal/JournalReader.h"

#include "platform/journal/JournalFormat.h"
#include "platform/journal/SequenceRanges.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

namespace orrelo {
namespace {

constexpr std::size_t chunkSize = std::size_t{16} * 1024;
constexpr auto maximumRecordSize = EventJournal::maximumRecordSize;
constexpr auto headerSize = EventJournal::headerSize;

struct SourceFailure {};

/// A part of the file that moves forwards.
class Window {
 public:
  Window(const JournalSource& source, std::size_t size) : source_(source), size_(size) {}

  std::size_t size() const { return size_; }
  /// `count` bytes from `offset` on, fewer at the end of the file; valid until the next call. Offsets never
  /// descend.
  std::string_view bytes(std::size_t offset, std::size_t count) {
    if (offset + count > start_ + buffer_.size()) load(offset, count);
    const std::string_view all = buffer_;
    return all.substr(std::min(offset - start_, all.size()), count);
  }

 private:
  void load(std::size_t offset, std::size_t count) {
    buffer_.erase(0, std::min(offset - start_, buffer_.size()));
    start_ = offset;
    auto filled = buffer_.size();
    const auto end = std::min(std::max(count, filled + chunkSize), size_ - std::min(offset, size_));
    if (end <= filled) return;
    buffer_.resize(end);
    while (filled < end) {
      const auto got = source_(start_ + filled, buffer_.data() + filled, end - filled);
      if (!got) throw SourceFailure{};
      if (*got == 0) size_ = start_ + filled;  // the file has shrunk
      if (*got == 0) break;
      filled += *got;
    }
    buffer_.resize(filled);
  }

  const JournalSource& source_;
  std::size_t size_;
  std::string buffer_;
  std::size_t start_ = 0;
};

class Reader {
 public:
  Reader(const JournalSource& source, std::size_t size) : window_(source, size), sumBudget_(size + slack) {}

  JournalContent read(std::uint64_t seedOfName) {
    const auto header = journal::readFileHeader(window_.bytes(0, sizeof(journal::FileHeader)));
    content_.seed = header ? header->seed : seedOfName;
    if (header && header->version > journal::currentVersion) {
      content_.isLaterVersion = true;
      return std::move(content_);
    }
    if (header) at_ = sizeof(journal::FileHeader);
    const auto marker = journal::marker(content_.seed);
    while (at_ < window_.size()) {
      if (!takeRecord(marker)) skipToNext(marker);
    }
    for (auto& [sequence, record] : live_) content_.live.push_back({sequence, std::move(record)});
    return std::move(content_);
  }

 private:
  /// The number of bytes that a reader may sum up in vain, beside the file's size.
  static constexpr std::size_t slack = std::size_t{16} * 1024 * 1024;

  bool takeRecord(std::uint32_t marker) {
    const auto head = window_.bytes(at_, headerSize);
    if (head.size() < headerSize) return false;
    const auto header = journal::readRecordHeader(head);
    if (header.marker != marker || header.length > maximumRecordSize - headerSize) return false;
    const auto record = window_.bytes(at_, headerSize + header.length);
    if (record.size() < headerSize + header.length) return false;
    if (!journal::hasRightSum(record, content_.seed)) {
      sumBudget_ -= std::min(sumBudget_, record.size());
      return false;
    }
    at_ += record.size();
    if (header.kind == journal::RecordKind::event) keep(header.sequence, record);
    if (header.kind == journal::RecordKind::released) release(record.substr(headerSize));
    return true;
  }

  void keep(std::uint64_t sequence, std::string_view record) {
    if (released_.contains(sequence)) return;
    live_.try_emplace(sequence, EventJournal::Record::copyOf(record));
  }

  void release(std::string_view pairs) {
    struct Pair {
      std::uint64_t first;
      std::uint64_t last;
    };
    for (; pairs.size() >= sizeof(Pair); pairs.remove_prefix(sizeof(Pair))) {
      Pair pair{};
      std::memcpy(&pair, pairs.data(), sizeof(pair));
      if (pair.last < pair.first) continue;
      released_.add(pair.first, pair.last);
      live_.erase(live_.lower_bound(pair.first), live_.upper_bound(pair.last));
    }
  }

  void skipToNext(std::uint32_t marker) {
    const auto from = at_++;
    if (sumBudget_ == 0) at_ = window_.size();
    const std::string_view wanted(reinterpret_cast<const char*>(&marker), sizeof(marker));
    while (at_ < window_.size()) {
      const auto bytes = window_.bytes(at_, chunkSize);
      const auto found = bytes.find(wanted);
      if (found != std::string_view::npos) {
        at_ += found;
        break;
      }
      // The marker may begin in the last bytes of this chunk.
      at_ += bytes.size() < chunkSize ? bytes.size() : chunkSize - wanted.size() + 1;
    }
    at_ = std::min(at_, window_.size());
    content_.unreadableSize += at_ - from;
  }

  Window window_;
  std::size_t sumBudget_;
  std::size_t at_ = 0;
  JournalContent content_;
  SequenceRanges released_;
  std::map<std::uint64_t, EventJournal::Record> live_;
};

}  // namespace

std::optional<JournalContent> readJournal(const JournalSource& source, std::size_t size,
                                          std::uint64_t seedOfName) {
  try {
    return Reader(source, size).read(seedOfName);
  } catch (const SourceFailure&) {
    return std::nullopt;
  }
}

}  // namespace orrelo
