#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <filesystem>
#include <mutex>

namespace orrelo::devservice {

/// The SQLite file of what users have done and what they own. Its books share one connection and one lock.
class UserDatabase {
 public:
  explicit UserDatabase(const std::filesystem::path& file);

  /// What changes together. Other threads wait until it ends, and nothing is changed without `commit`.
  class Change {
   public:
    explicit Change(UserDatabase& users) : lock_(users.mutex_), transaction_(users.connection_) {}
    void commit() { transaction_.commit(); }

   private:
    std::lock_guard<std::recursive_mutex> lock_;
    SQLite::Transaction transaction_;
  };

  /// Calls `work` with the connection while no other thread uses it.
  template <class Work>
  auto use(const Work& work) {
    const std::lock_guard lock(mutex_);
    return work(connection_);
  }

 private:
  /// Recursive, because books also read within a change.
  std::recursive_mutex mutex_;
  SQLite::Database connection_;
};

}  // namespace orrelo::devservice
