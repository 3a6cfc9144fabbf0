#pragma once

#include "store/WalletRecords.h"

#include <nlohmann/json.hpp>
#include <string>
#include <variant>

namespace orrelo::devservice {

/// What `wallet.json` says.
struct WalletFile {
  std::int64_t pageSize = 20;
  /// The caption above the balance, its unit and its picture.
  std::string caption = "내 포인트";
  std::string unit = "P";
  std::string iconUrl;
  WalletBeginning beginning;
};

/// Reads what an action gives, or the message that says what is wrong with it.
std::variant<WalletChange, std::string> walletChangeFromJson(const nlohmann::json& json);

/// Reads the text of `wallet.json`. Throws std::runtime_error that says what is wrong in it.
WalletFile walletFileFromText(const std::string& text);

/// Whether clients can read the text as the limit date of a voucher, which is an RFC 3339 time of whole
/// seconds.
bool isDateOfVoucher(const std::string& text);

/// A row of the history and a voucher, as clients get them. Only an issued voucher has an `imageUrl`.
nlohmann::json movementToJson(const PointMovement& movement);
nlohmann::json voucherToJson(const Voucher& voucher, const std::string& imageUrl);

}  // namespace orrelo::devservice
