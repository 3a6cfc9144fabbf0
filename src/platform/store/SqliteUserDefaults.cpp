#include "platform/store/SqliteUserDefaults.h"

#include "base/explain.h"
#include "platform/store/DefaultsFile.h"
#include "platform/store/FileNames.h"

#include <optional>
#include <utility>

namespace orrelo {

/// A read is answered from `pending_`, else from `values_`, else from the file. The file and the values in
/// memory have separate mutexes, so that a read does not wait for a write; `fileMutex_` is locked first.
class SqliteUserDefaults final : public UserDefaults {
 public:
  SqliteUserDefaults(std::string fileName, std::shared_ptr<Directories> directories,
                     std::shared_ptr<Clock> clock)
      : fileName_(std::move(fileName)), directories_(std::move(directories)), clock_(std::move(clock)) {}

  std::optional<DefaultsValue> value(std::string_view key) const override {
    {
      const std::lock_guard memory(memoryMutex_);
      if (isLoaded_ || isOverwritten(key)) return inMemory(key);
    }
    const std::lock_guard file(fileMutex_);
    load();
    const std::lock_guard memory(memoryMutex_);
    return inMemory(key);
  }

  void set(std::string_view key, DefaultsValue value) override { change(key, {std::move(value)}); }

  void remove(std::string_view key) override { change(key, {}); }

  std::string textOrInsert(std::string_view key, std::string candidate) override {
    change(key, {candidate, Stored::keptIfText});
    const std::lock_guard memory(memoryMutex_);
    const auto known = inMemory(key);
    return isText(known) ? std::get<std::string>(*known) : candidate;
  }

  /// Makes the next read load the file again. Known values stay valid if it is missing or unreadable.
  void refresh() {
    const std::lock_guard file(fileMutex_);
    const std::lock_guard memory(memoryMutex_);
    isLoaded_ = false;
  }

 private:
  using Stored = DefaultsChange::Stored;

  std::filesystem::path path() const { return directories_->data() / fileName_; }

  // memoryMutex_ must be locked.
  bool isOverwritten(std::string_view key) const {
    const auto change = pending_.find(key);
    return change != pending_.end() && change->second.stored == Stored::replaced;
  }

  // memoryMutex_ must be locked.
  std::optional<DefaultsValue> inMemory(std::string_view key) const {
    if (const auto change = pending_.find(key); change != pending_.end()) return change->second.value;
    const auto known = values_.find(key);
    return known == values_.end() ? std::nullopt : std::optional(known->second);
  }

  void change(std::string_view key, DefaultsChange change) {
    const std::lock_guard file(fileMutex_);
    load();
    const std::string name(key);
    std::error_code failure;
    const bool hasFile =
        file_ || std::filesystem::status(path(), failure).type() != std::filesystem::file_type::not_found;
    {
      const std::lock_guard memory(memoryMutex_);
      if (change.stored == Stored::keptIfText && isText(inMemory(key))) return;
      if (!change.value && !hasFile) {
        pending_.erase(name);
        values_.erase(name);
        return;
      }
      pending_.insert_or_assign(name, std::move(change));
    }
    save();
  }

  static bool isText(const std::optional<DefaultsValue>& value) {
    return value && std::holds_alternative<std::string>(*value);
  }

  void load() const {
    if (isLoaded_) return;
    std::optional<DefaultsValues> stored;
    for (bool isRetry = false;; isRetry = true) {
      try {
        if (file_ && file_->hasMoved()) file_.reset();
        if (!file_) file_ = DefaultsFile::openExisting(path());
        if (file_) stored = file_->read();
        break;
      } catch (...) {
        const auto failure = SqliteFailure::fromCurrentException();
        if (isRetry && failure.isUnusableFile() && replace(failure)) break;
        file_.reset();
        // A failure may last for one call only, and SQLite reports a failed read as corruption, but a value
        // that is missing for a moment may cost events. A file that is unreadable for longer is loaded by the
        // next read.
        if (isRetry || failure.isBusy()) return;
      }
    }
    const std::lock_guard memory(memoryMutex_);
    isLoaded_ = true;
    mustWriteAll_ = !stored;
    if (!stored) return;
    values_ = *std::move(stored);
    std::erase_if(pending_, [this](const auto& change) {
      const auto& [key, pending] = change;
      const auto known = values_.find(key);
      return pending.stored == Stored::keptIfText && known != values_.end() && isText(known->second);
    });
  }

  void save() {
    bool replaced = false;
    bool isRetry = false;
    while (true) {
      try {
        const bool moved = file_ && file_->hasMoved();
        if (moved) file_.reset();
        if (!file_) file_ = DefaultsFile::openOrCreate(path());
        auto changes = moved || replaced || mustWriteAll_ ? allChanges() : pending_;
        file_->apply(changes);
        moveToValues(std::move(changes));
        return;
      } catch (...) {
        const auto failure = SqliteFailure::fromCurrentException();
        if (!isRetry && failure.isUnusableFile()) {  // see `load`
          isRetry = true;
          file_.reset();
          continue;
        }
        if (!replaced && failure.isUnusableFile() && replace(failure)) {
          replaced = true;
          continue;
        }
        if (!failure.isBusy()) file_.reset();
        explain(ExplanationLevel::warning,
                [&] { return fileName_ + " refused a value: " + failure.error().description(); });
        return;
      }
    }
  }

  // The changes that restore all values in a new file. Values that another process has already written there
  // are kept.
  DefaultsChanges allChanges() const {
    auto changes = pending_;
    for (const auto& [key, value] : values_) changes.emplace(key, DefaultsChange{value, Stored::kept});
    return changes;
  }

  // Moves the applied changes from `pending_` to `values_`.
  void moveToValues(DefaultsChanges changes) {
    const std::lock_guard memory(memoryMutex_);
    mustWriteAll_ = false;
    for (auto& [key, change] : changes) {
      pending_.erase(key);
      if (change.value) {
        values_.insert_or_assign(key, *std::move(change.value));
      } else {
        values_.erase(key);
      }
    }
  }

  /// Moves an unusable file out of the way. False if it could not be renamed.
  bool replace(const SqliteFailure& reason) const {
    const bool moved = file_ && file_->hasMoved();
    if (file_) file_->skipCheckpointOnClose();
    file_.reset();
    return moved || quarantine(path(), clock_->now(), reason);
  }

  const std::string fileName_;
  const std::shared_ptr<Directories> directories_;
  const std::shared_ptr<Clock> clock_;

  mutable std::mutex fileMutex_;
  mutable std::unique_ptr<DefaultsFile> file_;

  // Written only while both mutexes are locked.
  mutable std::mutex memoryMutex_;
  mutable DefaultsValues values_;
  mutable bool isLoaded_ = false;
  // True if the file was missing or damaged when it was read.
  mutable bool mustWriteAll_ = false;
  mutable DefaultsChanges pending_;
};

SqliteUserDefaultsFactory::SqliteUserDefaultsFactory(std::shared_ptr<Directories> directories,
                                                     std::shared_ptr<Clock> clock,
                                                     std::string mainBundleIdentifier)
    : directories_(std::move(directories)),
      clock_(std::move(clock)),
      mainBundleIdentifier_(std::move(mainBundleIdentifier)) {}

std::shared_ptr<UserDefaults> SqliteUserDefaultsFactory::standard() {
  return open("defaults.sqlite");
}

std::shared_ptr<UserDefaults> SqliteUserDefaultsFactory::suite(std::string_view name) {
  if (name == mainBundleIdentifier_ || name == "NSGlobalDomain") return nullptr;
  return open("defaults-" + encodedFileName(name) + ".sqlite");
}

void SqliteUserDefaultsFactory::refresh() {
  const std::lock_guard lock(mutex_);
  for (const auto& [fileName, suite] : suites_) suite->refresh();
}

std::shared_ptr<SqliteUserDefaults> SqliteUserDefaultsFactory::open(const std::string& fileName) {
  const std::lock_guard lock(mutex_);
  auto& suite = suites_[fileName];
  if (!suite) suite = std::make_shared<SqliteUserDefaults>(fileName, directories_, clock_);
  return suite;
}

}  // namespace orrelo
