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

/// A write or removal of one key.
struct DefaultsChange {
  /// What becomes of a value that the file holds already.
  enum class Stored { replaced, keptIfText, kept };

  /// Absent to remove the key.
  std::optional<DefaultsValue> value;
  Stored stored = Stored::replaced;
};
using DefaultsChanges = std::map<std::string, DefaultsChange, std::less<>>;

/// The rows of one open suite, for one thread at a time. Whatever fails throws a SqliteFailure or the
/// wrapper's own exception.
class DefaultsFile {
 public:
  /// Opens without writing. Null where there is no file.
  static std::unique_ptr<DefaultsFile> openExisting(const std::filesystem::path& path);
  static std::unique_ptr<DefaultsFile> openOrCreate(const std::filesystem::path& path);

  bool hasMoved() const { return file_.hasMoved(); }
  void leaveAsItIs() { file_.leaveAsItIs(); }

  /// Rows that are not of their type's form are left out.
  DefaultsValues read();
  /// Makes all of the changes or none. A change that kept the stored value has it as its own afterwards.
  void apply(DefaultsChanges& changes);

 private:
  DefaultsFile(const std::filesystem::path& path, SqliteFile::Missing missing);
  void prepareForWriting();
  void apply(const std::string& key, DefaultsChange& change);

  SqliteFile file_;
  bool isWritable_ = false;
};

}  // namespace orrelo
