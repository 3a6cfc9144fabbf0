#pragma once

#include "store/UserDatabase.h"
#include "store/WalletRecords.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// The most notifications that wait for one user.
constexpr std::int64_t mostNotifications = 100;

/// The payloads of notifications that wait for a host to fetch them. Thread-safe. Database errors throw
/// SQLite::Exception.
class NotificationBook {
 public:
  explicit NotificationBook(UserDatabase& users);

  /// Adds a payload; false if too many are already waiting.
  bool add(const WalletOwner& user, const std::string& payload);
  /// Removes the user's payloads and returns them, oldest first. Each is handed out once.
  std::vector<std::string> take(const WalletOwner& user);
  std::int64_t waiting(const WalletOwner& user) const;

 private:
  UserDatabase& users_;
};

}  // namespace orrelo::devservice
