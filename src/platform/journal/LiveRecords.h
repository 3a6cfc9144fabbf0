#pragma once

#include <orrelo/platform/EventJournal.h>

#include <cstddef>
#include <deque>
#include <utility>

namespace orrelo {

/// The records of a journal that are not released, by position. Adding one in ascending order and releasing
/// the first ones takes constant time and seldom allocates. Not thread-safe.
class LiveRecords {
 public:
  using Position = EventJournal::Position;

  bool empty() const { return count_ == 0; }
  std::size_t size() const { return count_; }

  /// `position` must be larger than all former ones.
  void add(Position position, EventJournal::Record record) {
    if (records_.empty()) first_ = position;
    const auto index = static_cast<std::size_t>(position - first_);
    if (index > records_.size()) records_.resize(index);
    records_.push_back(std::move(record));
    ++count_;
  }

  /// Removes and returns the record; an empty one if there is none at this position.
  EventJournal::Record take(Position position) {
    if (!contains(position)) return {};
    auto record = std::move(records_[static_cast<std::size_t>(position - first_)]);
    --count_;
    for (; !records_.empty() && !records_.front(); ++first_) records_.pop_front();
    return record;
  }

  bool contains(Position position) const {
    return position >= first_ && position - first_ < records_.size() &&
           static_cast<bool>(records_[static_cast<std::size_t>(position - first_)]);
  }

  /// Calls `visit` with each position after `after` and its record, in ascending order.
  template <class Visit>
  void visitAfter(Position after, Visit visit) const {
    const auto skipped = after < first_ ? 0 : static_cast<std::size_t>(after - first_) + 1;
    for (auto i = skipped; i < records_.size(); ++i) {
      if (records_[i]) visit(first_ + i, records_[i]);
    }
  }

 private:
  /// Empty where a record is released, or where a position belongs to no record.
  std::deque<EventJournal::Record> records_;
  Position first_ = 0;
  std::size_t count_ = 0;
};

}  // namespace orrelo
