#include "platform/store/DefaultsFile.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

namespace orrelo {
namespace {

constexpr std::chrono::milliseconds busyTimeout{100};

/// Binds the value at `index` and the name of its type at `typeIndex`.
void bindValue(SQLite::Statement& statement, int typeIndex, int index, const DefaultsValue& value) {
  const auto type = [&](const char* name) { statement.bindNoCopy(typeIndex, name); };
  std::visit(
      [&](const auto& held) {
        using T = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<T, bool>) {
          type("bool");
          statement.bind(index, held ? 1 : 0);
        } else if constexpr (std::is_same_v<T, std::int64_t>) {
          type("integer");
          statement.bind(index, held);
        } else if constexpr (std::is_same_v<T, double>) {
          type("double");
          statement.bind(index, held);
        } else if constexpr (std::is_same_v<T, std::string>) {
          type("text");
          statement.bindNoCopy(index, held);
        } else {
          type("bytes");
          // An empty vector may have a null pointer, which SQLite would store as NULL.
          statement.bindNoCopy(index, held.empty() ? "" : static_cast<const void*>(held.data()),
                               static_cast<int>(held.size()));
        }
      },
      value);
}

std::optional<DefaultsValue> readValue(std::string_view type, const SQLite::Column& value) {
  if (type == "bool" && value.isInteger()) return value.getInt64() != 0;
  if (type == "integer" && value.isInteger()) return std::int64_t{value.getInt64()};
  if (type == "double" && value.isFloat()) return value.getDouble();
  // SQLite stores NaN as NULL.
  if (type == "double" && value.isNull()) return std::numeric_limits<double>::quiet_NaN();
  if (type == "text" && value.isText()) return value.getString();
  if (type == "bytes" && value.isBlob()) {
    const auto* bytes = static_cast<const std::byte*>(value.getBlob());
    return DefaultsData(bytes, bytes + value.getBytes());
  }
  return std::nullopt;
}

}  // namespace

DefaultsFile::DefaultsFile(const std::filesystem::path& path, SqliteFile::Missing missing)
    : file_(path, missing) {
  file_.setBusyTimeout(busyTimeout);
}

std::unique_ptr<DefaultsFile> DefaultsFile::openExisting(const std::filesystem::path& path) {
  std::error_code failure;
  if (std::filesystem::status(path, failure).type() == std::filesystem::file_type::not_found) return nullptr;
  return std::unique_ptr<DefaultsFile>(new DefaultsFile(path, SqliteFile::Missing::fail));
}

std::unique_ptr<DefaultsFile> DefaultsFile::openOrCreate(const std::filesystem::path& path) {
  return std::unique_ptr<DefaultsFile>(new DefaultsFile(path, SqliteFile::Missing::create));
}

DefaultsValues DefaultsFile::read() {
  DefaultsValues values;
  // Another process may have created the file but not the table yet.
  if (!file_.hasTable("defaults")) return values;
  auto select = file_.prepare("SELECT key, type, value FROM defaults");
  while (file_.step(select)) {
    auto value = readValue(select.getColumn(1).getString(), select.getColumn(2));
    if (value) values.emplace(select.getColumn(0).getString(), *std::move(value));
  }
  return values;
}

void DefaultsFile::apply(DefaultsChanges& changes) {
  prepareForWriting();
  file_.execute("BEGIN IMMEDIATE");
  try {
    for (auto& [key, change] : changes) apply(key, change);
    file_.execute("COMMIT");
  } catch (...) {
    const auto failure = SqliteFailure::fromCurrentException();
    if (file_.isInTransaction()) file_.execute("ROLLBACK");
    throw failure;
  }
}

void DefaultsFile::apply(const std::string& key, DefaultsChange& change) {
  if (!change.value) {
    auto remove = file_.prepare("DELETE FROM defaults WHERE key = ?");
    remove.bindNoCopy(1, key);
    file_.step(remove);
    return;
  }
  if (change.stored != DefaultsChange::Stored::replaced) {
    auto select = file_.prepare("SELECT type, value FROM defaults WHERE key = ?");
    select.bindNoCopy(1, key);
    auto stored =
        file_.step(select) ? readValue(select.getColumn(0).getString(), select.getColumn(1)) : std::nullopt;
    const bool isText = stored && std::holds_alternative<std::string>(*stored);
    if (isText || (stored && change.stored == DefaultsChange::Stored::kept)) {
      change.value = std::move(stored);
      return;
    }
  }
  auto replace = file_.prepare("INSERT OR REPLACE INTO defaults (key, type, value) VALUES (?, ?, ?)");
  replace.bindNoCopy(1, key);
  bindValue(replace, 2, 3, *change.value);
  file_.step(replace);
}

void DefaultsFile::prepareForWriting() {
  if (isWritable_) return;
  file_.prepareForWriting(busyTimeout);
  file_.execute("CREATE TABLE IF NOT EXISTS defaults (key TEXT PRIMARY KEY, type TEXT, value) WITHOUT ROWID");
  isWritable_ = true;
}

}  // namespace orrelo
