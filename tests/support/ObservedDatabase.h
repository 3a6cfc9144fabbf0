#pragma once

#include <orrelo/platform/EventDatabase.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::test {

/// A store that reports its commits: the callbacks run on the store's thread, right before the completion.
class ObservedDatabase final : public EventDatabase {
 public:
  explicit ObservedDatabase(std::shared_ptr<EventDatabase> database) : database_(std::move(database)) {}

  std::function<void(const std::string& eventId)> onInserted;
  std::function<void(const std::vector<std::string>& eventIds)> onDeleted;

  void insert(EventRow row, Completion<std::monostate> completion) override {
    auto observed = observedInsert(row, std::move(completion));
    database_->insert(std::move(row), std::move(observed));
  }
  void insertOnce(EventRow row, Completion<std::monostate> completion) override {
    auto observed = observedInsert(row, std::move(completion));
    database_->insertOnce(std::move(row), std::move(observed));
  }
  void fetchOldest(std::size_t limit, Completion<std::vector<EventRow>> completion) override {
    database_->fetchOldest(limit, std::move(completion));
  }
  void deleteRows(std::vector<std::string> ids, Completion<std::size_t> completion) override {
    database_->deleteRows(ids, [this, ids, completion = std::move(completion)](const auto& result) {
      if (onDeleted && result.index() == 0) onDeleted(ids);
      completion(result);
    });
  }
  void deleteRowsUpTo(StoredTime time, Completion<std::size_t> completion) override {
    database_->deleteRowsUpTo(std::move(time), std::move(completion));
  }
  std::string location() const override { return database_->location(); }
  void acquireSending(Completion<std::shared_ptr<const void>> completion) override {
    database_->acquireSending(std::move(completion));
  }

 private:
  Completion<std::monostate> observedInsert(const EventRow& row, Completion<std::monostate> completion) {
    return [this, id = row.eventId.value_or(""), completion = std::move(completion)](const auto& result) {
      if (onInserted && result.index() == 0) onInserted(id);
      completion(result);
    };
  }

  std::shared_ptr<EventDatabase> database_;
};

}  // namespace orrelo::test
