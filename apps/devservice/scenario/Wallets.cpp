#include "scenario/Wallets.h"

#include "JsonText.h"
#include "barcode/BarcodePicture.h"
#include "scenario/Placeholders.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <ctime>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>
#include <variant>

namespace orrelo::devservice {

using nlohmann::json;

namespace {

WalletOwner ownerOf(const Caller& caller) {
  return {caller.appKey, caller.userId};
}

/// The scenario's time as clients expect it in a row of the history.
std::string timeText(const Scenario& scenario) {
  const auto now = std::chrono::system_clock::to_time_t(scenario.now());
  std::tm utc{};
  gmtime_r(&now, &utc);
  std::array<char, 24> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc)};
}

/// A whole number of at most 9 digits, so that no page of any size overflows.
std::optional<std::int64_t> pageNumber(const std::string& text) {
  std::int64_t number = 0;
  const auto* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, number);
  if (text.empty() || text.size() > 9 || error != std::errc{} || end != last || number < 0)
    return std::nullopt;
  return number;
}

/// The code on the voucher's picture: a leading 9 and the voucher's number.
std::string imageUrlOf(const Voucher& voucher, const Caller& caller) {
  constexpr std::size_t digits = 11;
  const auto number = std::to_string(voucher.id);
  const auto code = "9" + std::string(digits - std::min(digits, number.size()), '0') + number;
  return caller.serviceUrl + BarcodePicture::pathOf(code);
}

}  // namespace

Wallets::Wallets(UserDatabase& users, const Scenario& scenario)
    : users_(users), book_(users), scenario_(scenario) {}

WalletFile Wallets::open(const UserDatabase::Change& change, const Caller& caller) {
  const auto text = scenario_.wallet(caller.appKey);
  auto file = text ? walletFileFromText(fillIn(*text, caller, scenario_)) : WalletFile{};
  if (!book_.find(ownerOf(caller))) book_.open(change, ownerOf(caller), file.beginning);
  return file;
}

WalletFile Wallets::opened(const Caller& caller) {
  UserDatabase::Change change(users_);
  auto file = open(change, caller);
  change.commit();
  return file;
}

Reply Wallets::balance(const Caller& caller) {
  const auto file = opened(caller);
  return jsonReply(200, {{"amount", book_.summary(ownerOf(caller)).points},
                         {"description", file.caption},
                         {"point_unit", file.unit},
                         {"icon_url", file.iconUrl}});
}

Reply Wallets::history(const Caller& caller, const std::string& page) {
  const auto number = pageNumber(page);
  if (!number) return errorReply(400, "\"page\" must be a whole number from 0 of at most 9 digits");
  const auto file = opened(caller);
  auto rows = json::array();
  for (const auto& movement : book_.history(ownerOf(caller), *number, file.pageSize)) {
    rows.push_back(movementToJson(movement));
  }
  return jsonReply(200, rows);
}

Reply Wallets::counts(const Caller& caller) {
  opened(caller);
  const auto has = book_.summary(ownerOf(caller));
  return jsonReply(200, {{"point", has.points}, {"ticket", has.tickets}, {"gifticon", has.usableVouchers}});
}

Reply Wallets::vouchers(const Caller& caller) {
  opened(caller);
  return jsonReply(200, vouchersOf(caller));
}

json Wallets::vouchersOf(const Caller& caller) const {
  auto rows = json::array();
  for (const auto& voucher : book_.vouchers(ownerOf(caller))) {
    rows.push_back(voucherToJson(voucher, imageUrlOf(voucher, caller)));
  }
  return rows;
}

Reply Wallets::issue(const Caller& caller, const std::string& body) {
  const auto wanted = json::parse(body, nullptr, false);
  const auto id = wanted.is_object() ? stringAt(wanted, "gifticon_id") : std::nullopt;
  if (!id) return errorReply(400, "the body must be an object with the string \"gifticon_id\"");
  UserDatabase::Change change(users_);
  open(change, caller);
  const auto owned = book_.vouchers(ownerOf(caller));
  const auto voucher =
      std::ranges::find(owned, *id, [](const Voucher& each) { return std::to_string(each.id); });
  if (voucher == owned.end()) return errorReply(404, "the user has no such voucher");
  if (!isUsable(voucher->state)) return errorReply(409, "the voucher is " + voucher->state);
  book_.setState(change, ownerOf(caller), voucher->id, "downloaded");
  change.commit();
  return jsonReply(200, vouchersOf(caller));
}

std::optional<std::string> Wallets::apply(const UserDatabase::Change& change, const Caller& caller,
                                          const WalletChange& wanted) {
  open(change, caller);
  return book_.apply(change, ownerOf(caller), wanted, timeText(scenario_));
}

Reply Wallets::show(const Caller& caller) {
  constexpr std::int64_t shownMovements = 50;
  // Not committed: a page of another site can send this request, and must not make wallets by it.
  UserDatabase::Change preview(users_);
  const auto file = open(preview, caller);
  const auto has = book_.summary(ownerOf(caller));
  auto rows = json::array();
  for (const auto& movement : book_.history(ownerOf(caller), 0, shownMovements)) {
    rows.push_back(movementToJson(movement));
  }
  return jsonReply(200, {{"points", has.points},
                         {"unit", file.unit},
                         {"tickets", has.tickets},
                         {"usableVouchers", has.usableVouchers},
                         {"vouchers", vouchersOf(caller)},
                         {"history", std::move(rows)},
                         {"historySize", book_.historySize(ownerOf(caller))}});
}

Reply Wallets::change(const Caller& caller, const std::string& body) {
  const auto parsed = json::parse(body, nullptr, false);
  if (parsed.is_discarded()) return errorReply(400, "the body is not JSON");
  const auto wanted = walletChangeFromJson(parsed);
  if (const auto* problem = std::get_if<std::string>(&wanted)) return errorReply(400, *problem);
  for (const auto& voucher : std::get<WalletChange>(wanted).vouchers) {
    // Only files may have broken dates, because a voucher stays once a user has it.
    if (!isDateOfVoucher(voucher.date)) {
      return errorReply(400, "the \"date\" of a voucher must be like \"2026-12-31T23:59:59Z\"");
    }
  }
  {
    UserDatabase::Change change(users_);
    const auto problem = apply(change, caller, std::get<WalletChange>(wanted));
    if (problem) return errorReply(400, *problem);
    change.commit();
  }
  return show(caller);
}

}  // namespace orrelo::devservice
