#pragma once

#include <orrelo/platform/EventJournal.h>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace orrelo::test {

/// A journal in memory. Any thread.
class MemoryEventJournal final : public EventJournal {
 public:
  void prepare() override {
    const std::lock_guard lock(mutex_);
    isPrepared_ = true;
  }

  std::variant<Position, Refusal> append(const Record& record) override {
    const std::lock_guard lock(mutex_);
    if (record.size() > maximumRecordSize) return Refusal::tooLarge;
    if (refusal_) return *refusal_;
    return add(record);
  }

  void release(std::vector<Position> positions) override {
    const std::lock_guard lock(mutex_);
    for (const auto position : positions) records_.erase(position);
  }

  /// Calls `adopt` before it returns.
  void maintain(Adopter adopt) override {
    std::vector<std::vector<Adopted>> taken;
    {
      const std::lock_guard lock(mutex_);
      for (auto& journal : std::exchange(left_, {})) {
        auto& records = taken.emplace_back();
        for (auto& record : journal) records.push_back({add(record), record});
      }
    }
    for (auto& records : taken) adopt(std::move(records));
  }

  /// Orders that each `append` from now on is refused, or none.
  void refuse(std::optional<Refusal> refusal) {
    const std::lock_guard lock(mutex_);
    refusal_ = refusal;
  }
  /// Adds the journal of an ended process for the next `maintain`. Each record begins with `headerSize`
  /// bytes.
  void leave(std::vector<Record> records) {
    const std::lock_guard lock(mutex_);
    left_.push_back(std::move(records));
  }
  /// Ends the process that uses this journal: what it has not released is left for the next `maintain`.
  void abandon() {
    const std::lock_guard lock(mutex_);
    auto& journal = left_.emplace_back();
    for (auto& [position, record] : std::exchange(records_, {})) journal.push_back(std::move(record));
  }

  /// The records that are not released, adopted ones too, in the order of their positions.
  std::vector<Adopted> records() const {
    const std::lock_guard lock(mutex_);
    std::vector<Adopted> all;
    for (const auto& [position, record] : records_) all.push_back({position, record});
    return all;
  }
  bool isPrepared() const {
    const std::lock_guard lock(mutex_);
    return isPrepared_;
  }

 private:
  Position add(Record record) {
    records_.emplace(++last_, std::move(record));
    return last_;
  }

  mutable std::mutex mutex_;
  Position last_ = 0;
  std::map<Position, Record> records_;
  std::vector<std::vector<Record>> left_;
  std::optional<Refusal> refusal_;
  bool isPrepared_ = false;
};

}  // namespace orrelo::test
