#pragma once

#include "store/UserDatabase.h"
#include "store/WalletRecords.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::devservice {

/// The users' points, tickets and vouchers. Thread-safe. Database errors throw SQLite::Exception.
class WalletBook {
 public:
  explicit WalletBook(UserDatabase& users);

  /// Makes the wallet of a user who has none.
  void open(const UserDatabase::Change& change, const WalletOwner& owner, const WalletBeginning& beginning);
  /// Changes an open wallet; `date` is that of the history's row. Returns the reason why the wallet cannot be
  /// changed so, and then has changed nothing.
  std::optional<std::string> apply(const UserDatabase::Change& change, const WalletOwner& owner,
                                   const WalletChange& wanted, const std::string& date);
  /// Sets the state of one of the user's vouchers.
  void setState(const UserDatabase::Change& change, const WalletOwner& owner, std::int64_t voucher,
                const std::string& state);

  /// Absent if the user has no wallet.
  std::optional<WalletSummary> find(const WalletOwner& owner) const;
  /// Zeros if the user has no wallet.
  WalletSummary summary(const WalletOwner& owner) const { return find(owner).value_or(WalletSummary{}); }
  /// A page of the history, newest first. Pages count from 0; there are none beyond the last.
  std::vector<PointMovement> history(const WalletOwner& owner, std::int64_t page,
                                     std::int64_t pageSize) const;
  std::int64_t historySize(const WalletOwner& owner) const;
  /// Newest first.
  std::vector<Voucher> vouchers(const WalletOwner& owner) const;
  /// The wallets that were made or changed by `apply` last, the last one first.
  std::vector<std::pair<WalletOwner, WalletSummary>> latest(int limit) const;

 private:
  std::optional<std::string> problemWith(const WalletOwner& owner, const WalletChange& wanted) const;
  void addMovement(const WalletOwner& owner, const PointMovement& movement);
  /// Adds vouchers that are listed from the newest to the oldest.
  void addVouchers(const WalletOwner& owner, const std::vector<Voucher>& vouchers);
  void addVoucher(const WalletOwner& owner, const Voucher& voucher);

  UserDatabase& users_;
};

}  // namespace orrelo::devservice
