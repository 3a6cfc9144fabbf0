#include "store/UserDatabase.h"

namespace orrelo::devservice {

UserDatabase::UserDatabase(const std::filesystem::path& file)
    : connection_(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 5'000) {
  connection_.exec("PRAGMA journal_mode = WAL");
}

}  // namespace orrelo::devservice
