#pragma once

#include "platform/store/EventTable.h"
#include "platform/threads/KitThread.h"

#include <orrelo/platform/EventDatabase.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orrelo {

template <class T>
struct PendingResult {
  EventDatabase::Completion<T> completion;
  T result{};
};

/// One operation that waits for its transaction, and its result.
struct StoreOperation {
  struct Insert : PendingResult<std::monostate> {
    EventRow row;
    bool isOnce;

    void run(EventTable& table) { isOnce ? table.insertOnce(row) : table.insert(row); }
  };

  struct Fetch : PendingResult<std::vector<EventRow>> {
    std::size_t limit;

    void run(EventTable& table) { result = table.fetchOldest(limit); }
  };

  struct DeleteRows : PendingResult<std::size_t> {
    std::vector<std::string> eventIds;

    void run(EventTable& table) {
      result = 0;
      for (const auto& id : eventIds) result += table.deleteRow(id);
    }
  };

  struct DeleteUpTo : PendingResult<std::size_t> {
    StoredTime time;

    void run(EventTable& table) { result = table.deleteRowsUpTo(time); }
  };

  std::variant<Insert, Fetch, DeleteRows, DeleteUpTo> work;
  std::unique_ptr<Error> failure;

  /// An earlier attempt may have stored the row.
  void expectRow() {
    if (auto* const insert = std::get_if<Insert>(&work)) insert->isOnce = true;
  }

  /// True if the operation, which has not failed, has written rows, and not only looked for them.
  bool hasChangedRows() const {
    if (const auto* const deletion = std::get_if<DeleteRows>(&work)) return deletion->result > 0;
    if (const auto* const deletion = std::get_if<DeleteUpTo>(&work)) return deletion->result > 0;
    return std::holds_alternative<Insert>(work);
  }

  bool writes() const { return !std::holds_alternative<Fetch>(work); }
  /// True if the operation is a single statement, which needs no explicit transaction.
  bool isAtomic() const {
    const auto* deletion = std::get_if<DeleteRows>(&work);
    return deletion == nullptr || deletion->eventIds.size() <= 1;
  }

  void run(EventTable& table) {
    std::visit([&](auto& kind) { kind.run(table); }, work);
  }

  void complete() {
    std::visit(
        [&](auto& kind) {
          if (!kind.completion) return;
          runGuarded([&] {
            if (failure) return kind.completion(*failure);
            kind.completion(std::move(kind.result));
          });
        },
        work);
  }
};

}  // namespace orrelo
