#include "platform/SqliteUserDefaults.h"

#include "core/base/Logger.h"
#include "platform/DefaultsFile.h"
#include "platform/FileNames.h"

#include <optional>
#include <utility>

namespace orrelo {
namespace {

/// Two locks, so that a read never waits for a write to the file; the one for the file is taken first.
class SqliteUserDefaults final : public UserDefaults {
 public:
  SqliteUserDefaults(std::string fileName, std::shared_ptr<Directories> directories,
                     std::shared_ptr<Clock> clock)
      : fileName_(std::move(fileName)), directories_(std::move(directories)), clock_(std::move(clock)) {}

  std::optional<DefaultsValue> value(std::string_view key) const override {
    if (auto known = inMemory(key)) return *std::move(known);
    const std::lock_guard file(fileMutex_);
    load();
    return inMemory(key).value_or(std::nullopt);
  }

  bool isReadable() const override {
    const std::lock_guard file(fileMutex_);
    load();
    return isLoaded_;
  }

  void set(std::string_view key, DefaultsValue value) override {
    const std::lock_guard file(fileMutex_);
    load();
    const DefaultsValues change{{std::string(key), std::move(value)}};
    keep(change.begin()->first, change.begin()->second);
    save([&](DefaultsFile& open) { open.write(change); });
  }

  void remove(std::string_view key) override {
    const std::lock_guard file(fileMutex_);
    load();
    const std::string name(key);
    keep(name, std::nullopt);
    std::error_code failure;
    if (!file_ && !std::filesystem::exists(path(), failure)) return;
    save([&](DefaultsFile& open) { open.remove(name); });
  }

 private:
  std::filesystem::path path() const { return directories_->data() / fileName_; }

  /// What is known of the key: its value or that it has none. Nothing where only the file can tell.
  std::optional<std::optional<DefaultsValue>> inMemory(std::string_view key) const {
    const std::lock_guard memory(memoryMutex_);
    const auto found = values_.find(key);
    if (found != values_.end()) return found->second;
    if (isLoaded_) return std::optional<DefaultsValue>();
    return std::nullopt;
  }

  void keep(const std::string& key, std::optional<DefaultsValue> value) {
    const std::lock_guard memory(memoryMutex_);
    values_.insert_or_assign(key, std::move(value));
  }

  void load() const {
    if (isLoaded_) return;
    DefaultsValues stored;
    try {
      if (!file_) file_ = DefaultsFile::openExisting(path());
      if (file_) stored = file_->read();
    } catch (...) {
      const auto failure = SqliteFailure::fromCurrentException();
      // A file that cannot be read for now is asked again by the next read.
      if (!failure.isUnusableFile() || !replace(failure)) {
        file_.reset();
        return;
      }
    }
    const std::lock_guard memory(memoryMutex_);
    for (auto& [key, value] : stored) values_.emplace(key, std::move(value));
    isLoaded_ = true;
  }

  template <class Change>
  void save(const Change& change) {
    bool replaced = false;
    while (true) {
      try {
        const bool moved = file_ && file_->hasMoved();
        if (moved) file_.reset();
        if (!file_) file_ = DefaultsFile::openOrCreate(path());
        if (moved || replaced) {
          file_->write(allInMemory());
        } else {
          change(*file_);
        }
        return;
      } catch (...) {
        const auto failure = SqliteFailure::fromCurrentException();
        if (!replaced && failure.isUnusableFile() && replace(failure)) {
          replaced = true;
          continue;
        }
        if (!failure.isBusy()) file_.reset();
        log(LogLevel::WARNING,
            [&] { return fileName_ + " refused a value: " + failure.error().description(); });
        return;
      }
    }
  }

  DefaultsValues allInMemory() const {
    const std::lock_guard memory(memoryMutex_);
    DefaultsValues all;
    for (const auto& [key, value] : values_) {
      if (value) all.emplace(key, *value);
    }
    return all;
  }

  /// Makes room for a fresh file; false where the folder does not let us.
  bool replace(const SqliteFailure& reason) const {
    const bool moved = file_ && file_->hasMoved();
    if (file_) file_->leaveAsItIs();
    file_.reset();
    return moved || setAside(path(), clock_->now(), reason);
  }

  const std::string fileName_;
  const std::shared_ptr<Directories> directories_;
  const std::shared_ptr<Clock> clock_;

  mutable std::mutex fileMutex_;
  mutable std::unique_ptr<DefaultsFile> file_;

  mutable std::mutex memoryMutex_;
  mutable std::map<std::string, std::optional<DefaultsValue>, std::less<>> values_;
  mutable bool isLoaded_ = false;  // written under both locks
};

}  // namespace

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

std::shared_ptr<UserDefaults> SqliteUserDefaultsFactory::open(const std::string& fileName) {
  const std::lock_guard lock(mutex_);
  auto& suite = suites_[fileName];
  if (!suite) suite = std::make_shared<SqliteUserDefaults>(fileName, directories_, clock_);
  return suite;
}

}  // namespace orrelo
