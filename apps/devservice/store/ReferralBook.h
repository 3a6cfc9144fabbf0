#pragma once

#include "store/UserDatabase.h"
#include "store/WalletRecords.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// The users' invitation codes, and who has redeemed whose code. Thread-safe. Database errors throw
/// SQLite::Exception.
class ReferralBook {
 public:
  explicit ReferralBook(UserDatabase& users);

  /// The user's own code of 8 letters and digits, made when it is first asked for. No other user of the app
  /// has the same code, and a user gets the same one from an empty database as well. Throws
  /// std::runtime_error if others have all codes that this user could get.
  std::string codeOf(const WalletOwner& user);
  /// The user of the app whose code this is; absent if nobody has been given this code.
  std::optional<std::string> ownerOf(const std::string& appKey, const std::string& code) const;

  /// Whether the user has redeemed a friend's code in this campaign.
  bool hasRedeemed(const WalletOwner& user, const std::string& campaign) const;
  /// Stores that the user has redeemed the code of `inviter`, a user of the same app. A user redeems once.
  void redeem(const UserDatabase::Change& change, const WalletOwner& user, const std::string& campaign,
              const std::string& inviter);
  /// The number of friends who have redeemed the user's code in this campaign.
  std::int64_t friendsOf(const WalletOwner& user, const std::string& campaign) const;

 private:
  UserDatabase& users_;
};

}  // namespace orrelo::devservice
