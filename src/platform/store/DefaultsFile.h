#pragma once

#include "platform/store/SqliteFile.h"

#include <orrelo/UserDefaults.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace orrelo {

using DefaultsValues = std::map<std::string, DefaultsValue, std::less<>>;

/// A write or a removal of one key.
struct DefaultsChange {
  /// How the change treats a value that is already in the file.
  enum class Stored { replaced, keptIfText, kept };

  /// The new value; absent to remove the key.
  std::optional<DefaultsValue> value;
  Stored stored = Stored::replaced;
};
using DefaultsChanges = std::map<std::string, DefaultsChange, std::less<>>;

/// The rows of one open suite. Not thread-safe. Failures throw a SqliteFailure or a SQLite::Exception.
class DefaultsFile {
 public:
  /// Opens without writing. Null if there is no file.
  static std::unique_ptr<DefaultsFile> openExisting(const std::filesystem::path& path);
  static std::unique_ptr<DefaultsFile> openOrCreate(const std::filesystem::path& path);

  bool hasMoved() const { return file_.hasMoved(); }
  void skipCheckpointOnClose() { file_.skipCheckpointOnClose(); }

  /// Reads all rows; skips rows whose value does not match their type.
  DefaultsValues read();
  /// Applies all changes or none. A change that keeps the stored value receives that value.
  void apply(DefaultsChanges& changes);

 private:
  DefaultsFile(const std::filesystem::path& path, SqliteFile::Missing missing);
  void prepareForWriting();
  void apply(const std::string& key, DefaultsChange& change);

  SqliteFile file_;
  bool isWritable_ = false;
};

}  // namespace orrelo
