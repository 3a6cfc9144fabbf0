#pragma once

#include "http/Reply.h"
#include "scenario/Caller.h"
#include "scenario/Scenario.h"
#include "scenario/WalletJson.h"
#include "store/UserDatabase.h"
#include "store/WalletBook.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace orrelo::devservice {

/// Serves the wallets of users. A user's wallet is made when it is first asked for, from the scenario's
/// `wallet.json`.
class Wallets {
 public:
  Wallets(UserDatabase& users, const Scenario& scenario);

  Reply balance(const Caller& caller);
  /// `page` is the query's text.
  Reply history(const Caller& caller, const std::string& page);
  Reply counts(const Caller& caller);
  Reply vouchers(const Caller& caller);
  /// Issues the voucher that the body names, and replies with all vouchers. A voucher that has been issued
  /// stays as it is, so that a user who presses twice gets it once.
  Reply issue(const Caller& caller, const std::string& body);

  /// Changes the caller's wallet within a larger change. Returns the reason why it cannot be changed so, and
  /// then has changed nothing.
  std::optional<std::string> apply(const UserDatabase::Change& change, const Caller& caller,
                                   const WalletChange& wanted);
  /// The whole wallet except the history's older rows. Makes no wallet: a user who has none is shown what
  /// they would begin with.
  Reply show(const Caller& caller);
  /// Makes the change that the body describes, and replies with the wallet as `show` does.
  Reply change(const Caller& caller, const std::string& body);
  const WalletBook& book() const { return book_; }

 private:
  /// Makes the caller's wallet if there is none. Returns what the file says now.
  WalletFile open(const UserDatabase::Change& change, const Caller& caller);
  /// Does the same as a change of its own.
  WalletFile opened(const Caller& caller);
  nlohmann::json vouchersOf(const Caller& caller) const;

  UserDatabase& users_;
  WalletBook book_;
  const Scenario& scenario_;
};

}  // namespace orrelo::devservice
