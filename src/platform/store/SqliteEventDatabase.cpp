#include "platform/store/SqliteEventDatabase.h"

#include "base/preconditionFailure.h"
#include "platform/store/EventTable.h"
#include "platform/store/FileLock.h"
#include "platform/store/FileNames.h"
#include "platform/store/StoreOperation.h"
#include "platform/threads/KitThread.h"

#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumBatchSize = 4096;
constexpr std::chrono::milliseconds maximumBusyTimeout{250};

// A descriptor that was opened on the executor's thread must be closed there.
template <class T>
void releaseOnExecutor(const std::shared_ptr<SerialExecutor>& executor, std::shared_ptr<T> object) {
  executor->post([object = std::move(object)]() mutable { object.reset(); });
}

using Operation = StoreOperation;
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

  ~SqliteEventDatabase() override {
    if (table_) releaseOnExecutor(executor_, std::move(table_));
  }

  void insert(EventRow row, Completion<std::monostate> completion) override {
    enqueue(Operation::Insert{{std::move(completion)}, std::move(row), false});
  }

  void insertOnce(EventRow row, Completion<std::monostate> completion) override {
    enqueue(Operation::Insert{{std::move(completion)}, std::move(row), true});
  }

  void fetchOldest(std::size_t limit, Completion<std::vector<EventRow>> completion) override {
    enqueue(Operation::Fetch{{std::move(completion)}, limit});
  }

  void deleteRows(std::vector<std::string> eventIds, Completion<std::size_t> completion) override {
    enqueue(Operation::DeleteRows{{std::move(completion)}, std::move(eventIds)});
  }

  void deleteRowsUpTo(StoredTime time, Completion<std::size_t> completion) override {
    enqueue(Operation::DeleteUpTo{{std::move(completion)}, std::move(time)});
  }

  std::string location() const override { return path().string(); }

  Status status() const override {
    const std::lock_guard lock(mutex_);
    return status_;
  }

  void acquireSending(Completion<std::shared_ptr<const void>> completion) override {
    executor_->post([self = shared_from_this(), completion = std::move(completion)] {
      runGuarded([&] { completion(self->lockSending()); });
    });
  }

 private:
  /// Waits for a busy file only once per batch.
  std::chrono::milliseconds busyTimeout() const {
    return wasBusy_ ? std::chrono::milliseconds(0) : maximumBusyTimeout;
  }

  std::variant<std::shared_ptr<const void>, Error> lockSending() const {
    try {
      auto lock = acquireLock(path() += ".lock");
      if (!lock) return nullptr;
      const std::shared_ptr<FileLock> held = std::move(lock);
      return std::shared_ptr<const void>(held.get(), [held, executor = executor_](const void*) mutable {
        releaseOnExecutor(executor, std::move(held));
      });
    } catch (const SqliteFailure& failure) {
      return failure.error();
    }
  }

  std::unique_ptr<FileLock> acquireLock(const std::filesystem::path& file) const {
    try {
      return FileLock::acquire(file);
    } catch (const SqliteFailure& failure) {
      if (!failure.isUnusableFile() || !quarantine(file, clock_->now(), failure)) throw;
      return FileLock::acquire(file);
    }
  }

  std::filesystem::path path() const { return directories_->data() / fileName_; }

  template <class Work>
  void enqueue(Work work) {
    {
      const std::lock_guard lock(mutex_);
      if (waiting_.empty() || waiting_.back().size() == maximumBatchSize) waiting_.emplace_back();
      waiting_.back().push_back({std::move(work), nullptr});
      if (std::exchange(isDraining_, true)) return;
    }
    postDrain();
  }

  void postDrain() {
    executor_->post([self = shared_from_this()] { self->drain(); });
  }

  /// Runs one batch and posts itself again, so that the stores take turns.
  void drain() {
    if (drainBatch()) postDrain();
  }

  /// True if more batches are waiting.
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
      // `run` has handled all failures of the file; this is another one, such as a lack of memory.
      table_.reset();
      for (auto& operation : batch) report(operation, SqliteFailure::fromCurrentException());
    }
    updateStatus(batch);
    for (auto& operation : batch) operation.complete();
    {
      const std::lock_guard lock(mutex_);
      isDraining_ = !waiting_.empty();
      return isDraining_;
    }
  }

  void updateStatus(const Batch& batch) {
    const std::lock_guard lock(mutex_);
    if (table_) status_.rowCount = table_->rowCount();
    for (const auto& operation : batch) {
      if (operation.failure) {
        status_.failure = *operation.failure;
      } else if (status_.failure && operation.hasChangedRows()) {
        status_.failure.reset();
      }
    }
  }

  void run(Batch& batch) {
    wasBusy_ = false;
    replaced_ = false;
    isSuspect_ = false;
    mustReopen_ = table_ && table_->hasMoved();
    if (mustReopen_) table_.reset();

    auto failure = attempt(batch);
    if (failure && batch.size() > 1) {
      // Retries the operations one by one, so that only those fail that cannot succeed. The commit may have
      // failed after it reached the file.
      for (auto& operation : batch) {
        operation.expectRow();
        report(operation, attempt({&operation, 1}));
      }
    } else if (failure) {
      report(batch.front(), std::move(failure));
    }
    if (mustReopen_) table_.reset();
  }

  static void report(Operation& operation, std::optional<SqliteFailure> failure) {
    if (failure) operation.failure = std::make_unique<Error>(failure->error());
  }

  /// Commits all operations of the batch or none; returns the reason for a failure.
  std::optional<SqliteFailure> attempt(std::span<Operation> batch) {
    while (true) {
      try {
        commitTogether(batch);
        return std::nullopt;
      } catch (...) {
        auto failure = SqliteFailure::fromCurrentException();
        if (table_ && !table_->rollback()) table_.reset();
        if (failure.isBusy()) {
          wasBusy_ = true;
          return failure;
        }
        mustReopen_ = true;
        if (!failure.isUnusableFile() || replaced_) return failure;
        // SQLite reports a failed read as corruption, so the file is opened and read once more.
        if (!std::exchange(isSuspect_, true)) {
          table_.reset();
          for (auto& operation : batch) operation.expectRow();
          continue;
        }
        if (!replace(failure)) return failure;
      }
    }
  }

  void commitTogether(std::span<Operation> batch) {
    if (!table_) table_ = std::make_shared<EventTable>(path(), timeStorage_, busyTimeout());
    table_->setBusyTimeout(busyTimeout());
    if (batch.size() == 1 && batch.front().isAtomic()) return batch.front().run(*table_);
    bool writes = false;
    for (const auto& operation : batch) writes = writes || operation.writes();
    table_->begin(writes);
    for (auto& operation : batch) operation.run(*table_);
    table_->commit();
  }

  /// Replaces an unusable file by an empty one. False if the file could not be renamed.
  bool replace(const SqliteFailure& reason) {
    // Another process may already have replaced it.
    const bool moved = table_ && table_->hasMoved();
    if (table_) table_->skipCheckpointOnClose();
    table_.reset();
    const auto file = path();
    if (!moved && !quarantine(file, clock_->now(), reason)) return false;
    replaced_ = true;
    mustReopen_ = false;
    try {
      table_ = std::make_shared<EventTable>(file, timeStorage_, busyTimeout());
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

  mutable std::mutex mutex_;
  std::deque<Batch> waiting_;
  bool isDraining_ = false;
  Status status_;

  // Accessed only in the executor's tasks.
  std::shared_ptr<EventTable> table_;
  bool wasBusy_ = false;
  bool replaced_ = false;
  /// The file has been found unusable once in this batch.
  bool isSuspect_ = false;
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
