#include "scenario/WalletJson.h"

#include "JsonText.h"

#include <algorithm>
#include <chrono>
#include <initializer_list>
#include <optional>
#include <regex>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace orrelo::devservice {

namespace {

using nlohmann::json;

constexpr std::size_t longestText = 500;
constexpr std::size_t mostMovements = 20'000;

/// The message for whoever wrote the wallet. Never thrown out of this file.
struct InvalidWallet : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string inQuotes(std::string_view name) {
  return "\"" + std::string(name) + "\"";
}

void expectObject(const json& value, const std::string& what, std::initializer_list<std::string_view> keys) {
  if (!value.is_object()) throw InvalidWallet(what + " must be an object");
  for (const auto& [key, member] : value.items()) {
    if (std::ranges::find(keys, key) == keys.end()) throw InvalidWallet(what + " has no " + inQuotes(key));
  }
}

std::optional<std::string> textAt(const json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end()) return std::nullopt;
  if (!found->is_string()) throw InvalidWallet(inQuotes(key) + " must be a string");
  auto text = found->get<std::string>();
  if (text.size() > longestText) {
    throw InvalidWallet(inQuotes(key) + " is longer than " + std::to_string(longestText) + " bytes");
  }
  return text;
}

std::string neededTextAt(const json& object, const char* key, const std::string& what) {
  auto text = textAt(object, key);
  if (!text || text->empty()) throw InvalidWallet(what + " needs a " + inQuotes(key));
  return *std::move(text);
}

std::optional<std::int64_t> integerAt(const json& object, const char* key, std::int64_t least,
                                      std::int64_t most) {
  const auto found = object.find(key);
  if (found == object.end()) return std::nullopt;
  if (const auto value = integerOf(*found, least, most)) return value;
  throw InvalidWallet(inQuotes(key) + " must be a whole number from " + std::to_string(least) + " to " +
                      std::to_string(most));
}

/// A number that changes something, hence not 0.
std::int64_t amountAt(const json& object, const char* key, std::int64_t least, std::int64_t most) {
  const auto amount = integerAt(object, key, least, most);
  if (amount == 0) throw InvalidWallet(inQuotes(key) + " must not be 0");
  return amount.value_or(0);
}

template <class Read>
auto listAt(const json& object, const char* key, std::size_t most, const Read& read) {
  std::vector<decltype(read(object))> result;
  const auto found = object.find(key);
  if (found == object.end()) return result;
  if (!found->is_array() || found->size() > most) {
    throw InvalidWallet(inQuotes(key) + " must be a list of at most " + std::to_string(most));
  }
  for (const auto& element : *found) result.push_back(read(element));
  return result;
}

Voucher voucherOf(const json& value) {
  const std::string what = "a voucher";
  expectObject(value, what, {"tag_text", "title", "date", "state"});
  Voucher voucher{0, textAt(value, "tag_text").value_or("쿠폰"), neededTextAt(value, "title", what),
                  neededTextAt(value, "date", what), textAt(value, "state").value_or("idle")};
  if (std::ranges::find(voucherStates, voucher.state) == voucherStates.end()) {
    throw InvalidWallet("a voucher is idle, downloaded, expired, used or canceled");
  }
  return voucher;
}

PointMovement movementOf(const json& value) {
  const std::string what = "a row of the history";
  expectObject(value, what, {"title", "description", "date", "point_amount"});
  return {0, neededTextAt(value, "title", what), textAt(value, "description").value_or(""),
          neededTextAt(value, "date", what),
          amountAt(value, "point_amount", -largestBalance, largestBalance)};
}

WalletChange changeOf(const json& value) {
  expectObject(value, "a change", {"points", "title", "description", "tickets", "vouchers"});
  WalletChange change;
  change.points = amountAt(value, "points", -largestBalance, largestBalance);
  change.tickets = amountAt(value, "tickets", -largestBalance, largestBalance);
  if (change.points != 0) {
    change.title = neededTextAt(value, "title", "\"points\"");
    change.body = textAt(value, "description").value_or("");
  } else if (value.contains("title") || value.contains("description")) {
    throw InvalidWallet("a \"title\" and a \"description\" need \"points\"");
  }
  const auto vouchers = value.find("vouchers");
  if (vouchers != value.end() && vouchers->is_number()) {
    change.redeemed = -amountAt(value, "vouchers", -mostVouchers, -1);
  } else {
    change.vouchers = listAt(value, "vouchers", mostVouchers, voucherOf);
  }
  if (change.points == 0 && change.tickets == 0 && change.redeemed == 0 && change.vouchers.empty()) {
    throw InvalidWallet("a change needs \"points\", \"tickets\" or \"vouchers\"");
  }
  return change;
}

WalletFile fileOf(const json& value) {
  expectObject(value, "the file",
               {"page_size", "description", "point_unit", "icon_url", "tickets", "history", "vouchers"});
  WalletFile file;
  file.pageSize = integerAt(value, "page_size", 1, 1'000).value_or(file.pageSize);
  file.caption = textAt(value, "description").value_or(file.caption);
  file.unit = textAt(value, "point_unit").value_or(file.unit);
  file.iconUrl = textAt(value, "icon_url").value_or("");
  auto& beginning = file.beginning;
  beginning.tickets = integerAt(value, "tickets", 0, largestBalance).value_or(0);
  beginning.movements = listAt(value, "history", mostMovements, movementOf);
  beginning.vouchers = listAt(value, "vouchers", mostVouchers, voucherOf);
  std::int64_t points = 0;
  for (const auto& movement : beginning.movements) points += movement.amount;
  if (points < 0 || points > largestBalance) {
    throw InvalidWallet("the amounts of \"history\" add up to " + std::to_string(points));
  }
  return file;
}

}  // namespace

std::variant<WalletChange, std::string> walletChangeFromJson(const json& value) {
  try {
    return changeOf(value);
  } catch (const InvalidWallet& problem) {
    return std::string(problem.what());
  }
}

WalletFile walletFileFromText(const std::string& text) {
  try {
    return fileOf(json::parse(text, nullptr, false));
  } catch (const InvalidWallet& problem) {
    throw std::runtime_error(std::string("wallet.json: ") + problem.what());
  }
}

bool isDateOfVoucher(const std::string& text) {
  static const std::regex form(
      R"((\d{4})-(\d\d)-(\d\d)T([01]\d|2[0-3]):[0-5]\d:[0-5]\d(Z|[+-]([01]\d|2[0-3]):[0-5]\d))");
  std::smatch found;
  if (!std::regex_match(text, found, form)) return false;
  const auto number = [&](std::size_t group) { return static_cast<unsigned>(std::stoi(found[group].str())); };
  return std::chrono::year_month_day(std::chrono::year(static_cast<int>(number(1))),
                                     std::chrono::month(number(2)), std::chrono::day(number(3)))
      .ok();
}

json movementToJson(const PointMovement& movement) {
  return {{"id", movement.id},
          {"title", movement.title},
          {"description", movement.body},
          {"date", movement.date},
          {"point_amount", movement.amount}};
}

json voucherToJson(const Voucher& voucher, const std::string& imageUrl) {
  json result{{"id", std::to_string(voucher.id)},
              {"tag_text", voucher.tag},
              {"title", voucher.title},
              {"date", voucher.date},
              {"state", voucher.state}};
  if (voucher.state == "downloaded") result["image_url"] = imageUrl;
  return result;
}

}  // namespace orrelo::devservice
