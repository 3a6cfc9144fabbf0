#include "platform/store/SqliteEventDatabase.h"

#include "base/preconditionFailure.h"
#include "platform/store/EventTable.h"
#include "platform/store/FileLock.h"
#include "platform/store/FileNames.h"
#include "platform/threads/KitThread.h"

#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t largestBatch = 4096;
constexpr std::chrono::milliseconds patience{250};

template <class T>
struct Waiting {
  EventDatabase::Completion<T> completion;
  T result{};
};

struct Insert : Waiting<std::monostate> {
  EventRow row;

  void run(EventTable& table) { table.insert(row); }
};

struct Fetch : Waiting<std::vector<EventRow>> {
  std::size_t limit;

  void run(EventTable& table) { result = table.fetchOldest(limit); }
};

struct DeleteRows : Waiting<std::size_t> {
  std::vector<std::string> eventIds;

  void run(EventTable& table) {
    result = 0;
    for (const auto& id : eventIds) result += table.deleteRow(id);
  }
};

struct DeleteUpTo : Waiting<std::size_t> {
  StoredTime time;

  void run(EventTable& table) { result = table.deleteRowsUpTo(time); }
};

struct Operation {
  std::variant<Insert, Fetch, DeleteRows, DeleteUpTo> work;
  std::unique_ptr<Error> failure;

  bool writes() const { return !std::holds_alternative<Fetch>(work); }
  /// One statement, which is a transaction of its own.
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

using Batch = std::vector<Operation>;

class SqliteEventDatabase final : public EventDatabase,
                                  public std::enable_shared_from_this<SqliteEventDatabase> {
 public:
  SqliteEventDatabase(std::string fileName, EventTimeStorage timeStorage,
                      std::shared_ptr<Directories> directories, std::shared_ptr<Clock> clock,
                      std::shared_ptr<SerialExecutor> executor)
      : fileName_(std::move(fileName)),
        timeStorage_(timeStorage),
        directories_(std::move(directories)),
        clock_(std::move(clock)),
        executor_(std::move(executor)) {}

  void insert(EventRow row, Completion<std::monostate> completion) override {
    enqueue(Insert{{std::move(completion)}, std::move(row)});
  }

  void fetchOldest(std::size_t limit, Completion<std::vector<EventRow>> completion) override {
    enqueue(Fetch{{std::move(completion)}, limit});
  }

  void deleteRows(std::vector<std::string> eventIds, Completion<std::size_t> completion) override {
    enqueue(DeleteRows{{std::move(completion)}, std::move(eventIds)});
  }

  void deleteRowsUpTo(StoredTime time, Completion<std::size_t> completion) override {
    enqueue(DeleteUpTo{{std::move(completion)}, std::move(time)});
  }

  std::string location() const override { return path().string(); }

  std::shared_ptr<const void> acquireSending() override { return FileLock::acquire(path() += ".lock"); }

 private:
  /// Who was kept waiting once in this batch need not wait again.
  std::chrono::milliseconds busyTimeout() const {
    return foundBusy_ ? std::chrono::milliseconds(0) : patience;
  }

  std::filesystem::path path() const { return directories_->data() / fileName_; }

  template <class Work>
  void enqueue(Work work) {
    if (isExiting()) return;
    {
      const std::lock_guard lock(mutex_);
      if (waiting_.empty() || waiting_.back().size() == largestBatch) waiting_.emplace_back();
      waiting_.back().push_back({std::move(work), nullptr});
      if (std::exchange(isDraining_, true)) return;
    }
    postDrain();
  }

  void postDrain() {
    executor_->post([self = shared_from_this()] { self->drain(); });
  }

  /// One batch, so that the stores take turns; the rest too when the process exits, which takes no more
  /// posts.
  void drain() {
    while (drainBatch()) {
      if (!isExiting()) return postDrain();
    }
  }

  /// Says whether there is more.
  bool drainBatch() {
    Batch batch;
    {
      const std::lock_guard lock(mutex_);
      batch = std::move(waiting_.front());
      waiting_.pop_front();
    }
    try {
      run(batch);
    } catch (...) {
      // None of the file's failures, which `run` has dealt with: without memory for a report, say.
      table_.reset();
      for (auto& operation : batch) report(operation, SqliteFailure::fromCurrentException());
    }
    for (auto& operation : batch) operation.complete();
    {
      const std::lock_guard lock(mutex_);
      isDraining_ = !waiting_.empty();
      return isDraining_;
    }
  }

  void run(Batch& batch) {
    foundBusy_ = false;
    replaced_ = false;
    mustReopen_ = table_ && table_->hasMoved();
    if (mustReopen_) table_.reset();

    auto failure = attempt(batch);
    if (failure && batch.size() > 1) {
      // Together they failed: each on its own, so that only those fail that have to.
      for (auto& operation : batch) report(operation, attempt({&operation, 1}));
    } else if (failure) {
      report(batch.front(), std::move(failure));
    }
    if (mustReopen_) table_.reset();
  }

  static void report(Operation& operation, std::optional<SqliteFailure> failure) {
    if (failure) operation.failure = std::make_unique<Error>(failure->error());
  }

  /// All of it, or nothing and the reason.
  std::optional<SqliteFailure> attempt(std::span<Operation> batch) {
    while (true) {
      try {
        commitTogether(batch);
        return std::nullopt;
      } catch (...) {
        auto failure = SqliteFailure::fromCurrentException();
        if (table_ && !table_->rollback()) table_.reset();
        if (failure.isBusy()) {
          foundBusy_ = true;
          return failure;
        }
        mustReopen_ = true;
        if (!failure.isUnusableFile() || replaced_ || !replace(failure)) return failure;
      }
    }
  }

  void commitTogether(std::span<Operation> batch) {
    if (!table_) table_.emplace(path(), timeStorage_, busyTimeout());
    table_->setBusyTimeout(busyTimeout());
    if (batch.size() == 1 && batch.front().isAtomic()) return batch.front().run(*table_);
    bool writes = false;
    for (const auto& operation : batch) writes = writes || operation.writes();
    table_->begin(writes);
    for (auto& operation : batch) operation.run(*table_);
    table_->commit();
  }

  /// Puts a fresh file in the place of an unusable one; false where the folder does not let us.
  bool replace(const SqliteFailure& reason) {
    // Another process may have done it before us.
    const bool moved = table_ && table_->hasMoved();
    if (table_) table_->leaveAsItIs();
    table_.reset();
    const auto file = path();
    if (!moved && !setAside(file, clock_->now(), reason)) return false;
    replaced_ = true;
    mustReopen_ = false;
    try {
      table_.emplace(file, timeStorage_, busyTimeout());
    } catch (const SqliteFailure& failure) {
      if (failure.isRefusal()) return true;
      preconditionFailure("Unresolved error " + failure.error().description() + ", " + file.string());
    }
    return true;
  }

  const std::string fileName_;
  const EventTimeStorage timeStorage_;
  const std::shared_ptr<Directories> directories_;
  const std::shared_ptr<Clock> clock_;
  const std::shared_ptr<SerialExecutor> executor_;

  std::mutex mutex_;
  std::deque<Batch> waiting_;
  bool isDraining_ = false;

  // Used by the executor's tasks alone.
  std::optional<EventTable> table_;
  bool foundBusy_ = false;
  bool replaced_ = false;
  bool mustReopen_ = false;
};

}  // namespace

SqliteEventDatabaseFactory::SqliteEventDatabaseFactory(std::shared_ptr<Directories> directories,
                                                       std::shared_ptr<Clock> clock,
                                                       std::shared_ptr<SerialExecutor> executor)
    : directories_(std::move(directories)), clock_(std::move(clock)), executor_(std::move(executor)) {}

std::shared_ptr<EventDatabase> SqliteEventDatabaseFactory::open(std::string_view name,
                                                                EventTimeStorage timeStorage) {
  const std::lock_guard lock(mutex_);
  const auto found = stores_.find(name);
  if (found != stores_.end()) return found->second;
  auto store = std::make_shared<SqliteEventDatabase>(encodedFileName(name) + ".sqlite", timeStorage,
                                                     directories_, clock_, executor_);
  return stores_.emplace(name, std::move(store)).first->second;
}

}  // namespace orrelo
