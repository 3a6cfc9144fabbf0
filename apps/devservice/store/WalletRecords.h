#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo::devservice {

/// The largest balance of points or of tickets, and the largest single movement.
constexpr std::int64_t largestBalance = 1'000'000'000;
/// The most vouchers that a user can use, and the most that one change adds.
constexpr std::int64_t mostVouchers = 1'000;

/// The states of a voucher on the wire. A user can have an "idle" one issued and can use a "downloaded" one.
constexpr std::array<std::string_view, 5> voucherStates{"idle", "downloaded", "expired", "used", "canceled"};

/// Whether a voucher in this state can still be used.
constexpr bool isUsable(std::string_view voucherState) {
  return voucherState == "idle" || voucherState == "downloaded";
}

struct Voucher {
  /// Assigned by the book.
  std::int64_t id = 0;
  std::string tag;
  std::string title;
  /// The limit date as text, as clients get it.
  std::string date;
  /// One of `voucherStates`.
  std::string state;
};

/// A row of the points' history.
struct PointMovement {
  /// Assigned by the book.
  std::int64_t id = 0;
  std::string title;
  std::string body;
  /// The time as text, as clients get it.
  std::string date;
  std::int64_t amount = 0;
};

/// What a user gets, or with negative numbers what is taken.
struct WalletChange {
  std::int64_t points = 0;
  /// The texts of the movement's row in the history.
  std::string title;
  std::string body;
  std::int64_t tickets = 0;
  std::vector<Voucher> vouchers;
  /// The number of vouchers that the user redeems: usable ones become used.
  std::int64_t redeemed = 0;
};

/// What a new user begins with. The points are the sum of the movements. Both lists are newest first.
struct WalletBeginning {
  std::int64_t tickets = 0;
  std::vector<PointMovement> movements;
  std::vector<Voucher> vouchers;
};

struct WalletOwner {
  std::string appKey;
  std::string userId;
  auto operator<=>(const WalletOwner&) const = default;
};

struct WalletSummary {
  std::int64_t points = 0;
  std::int64_t tickets = 0;
  /// The number of vouchers that are idle or downloaded.
  std::int64_t usableVouchers = 0;
};

}  // namespace orrelo::devservice
