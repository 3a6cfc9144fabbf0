#include "admin/AdminRoutes.h"

#include "JsonText.h"
#include "admin/AdminPage.h"
#include "faults/FaultJson.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#include <variant>

namespace orrelo::devservice {

namespace {

using nlohmann::json;

constexpr int eventsPerPage = 500;
constexpr int listedUsers = 200;
constexpr int listedTokens = 3;
constexpr std::size_t longestListedToken = 256;
constexpr std::size_t longestPayload = std::size_t{64} * 1024;
constexpr std::string_view faultsPath = "/admin/faults";

std::optional<std::uint64_t> toNumber(std::string_view text) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || value > INT64_MAX) return std::nullopt;
  return value;
}

std::int64_t milliseconds(TimePoint time) {
  return time.time_since_epoch().count();
}

json eventJson(const StoredEvent& stored) {
  const auto& event = stored.event;
  json result{{"id", stored.id},
              {"eventId", event.eventId},
              {"appKey", event.appKey},
              {"userId", nullptr},
              {"eventName", event.eventName},
              {"eventTime", event.eventTime},
              {"path", event.path},
              {"values", event.values},
              {"headers", event.headers},
              {"deliveries", event.deliveries},
              {"firstArrival", milliseconds(event.firstArrival)},
              {"lastArrival", milliseconds(event.lastArrival)}};
  if (event.userId) result["userId"] = *event.userId;
  return result;
}

json summaryJson(const WalletSummary& wallet) {
  return {{"points", wallet.points}, {"tickets", wallet.tickets}, {"usableVouchers", wallet.usableVouchers}};
}

/// The first characters of a long text.
std::string beginningOf(const std::string& text) {
  auto length = std::min(text.size(), longestListedToken);
  if (length == text.size()) return text;
  const auto isWithinCharacter = [&] { return (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U; };
  while (length > 0 && isWithinCharacter()) --length;
  return text.substr(0, length) + "…";
}

json tokensJson(const EventStore& store, const WalletOwner& user) {
  const auto [tokens, count] = store.tokensOf(user.appKey, user.userId, listedTokens);
  auto latest = json::array();
  for (const auto& token : tokens) {
    latest.push_back({{"token", beginningOf(token.token)},
                      {"saves", token.saves},
                      {"lastSaved", milliseconds(token.lastSaved)}});
  }
  return {{"count", count}, {"latest", std::move(latest)}};
}

/// The users who were seen last, then those who are known by their wallet alone, up to `listedUsers`. A user
/// without a wallet has null there.
json usersJson(const EventStore& store, const WalletBook& book, const NotificationBook& notifications) {
  auto result = json::array();
  std::set<WalletOwner> listed;
  const auto add = [&](const WalletOwner& owner, const std::optional<WalletSummary>& wallet) -> json& {
    listed.insert(owner);
    result.push_back({{"appKey", owner.appKey},
                      {"userId", owner.userId},
                      {"events", 0},
                      {"firstSeen", nullptr},
                      {"lastSeen", nullptr},
                      {"notifications", notifications.waiting(owner)},
                      {"tokens", tokensJson(store, owner)},
                      {"wallet", wallet ? summaryJson(*wallet) : json()}});
    return result.back();
  };
  for (const auto& user : store.users(listedUsers)) {
    const WalletOwner owner{user.appKey, user.userId};
    add(owner, book.find(owner))
        .update({{"events", user.events},
                 {"firstSeen", milliseconds(user.firstSeen)},
                 {"lastSeen", milliseconds(user.lastSeen)}});
  }
  for (const auto& [owner, wallet] : book.latest(listedUsers)) {
    if (result.size() == listedUsers) break;
    if (!listed.contains(owner)) add(owner, wallet);
  }
  return result;
}

json faultsJson(const FaultBook& faults) {
  auto result = json::array();
  for (const auto& fault : faults.list()) result.push_back(faultToJson(fault));
  return result;
}

Reply pageReply() {
  auto reply = Reply::text(200, AdminPage::html(), "text/html; charset=utf-8");
  reply.headers = {{"Content-Security-Policy", AdminPage::contentSecurityPolicy()},
                   {"X-Content-Type-Options", "nosniff"},
                   {"Cache-Control", "no-store"}};
  return reply;
}

/// Pages of other sites in the same browser must not change faults and wallets here.
bool isCrossOrigin(const httplib::Request& request) {
  return request.has_header("Origin") &&
         request.get_header_value("Origin") != "https://" + request.get_header_value("Host");
}

bool hasOwner(const httplib::Request& request) {
  return request.has_param("app") && request.has_param("user");
}

Reply noOwner() {
  return errorReply(400, "the query needs \"app\" and \"user\"");
}

Reply wrongMethod() {
  return errorReply(405, "this path does not take this method");
}

}  // namespace

AdminRoutes::AdminRoutes(const EventStore& store, UserDatabase& users, Wallets& wallets,
                         const Scenario& scenario, const RequestLog& requests, FaultBook& faults)
    : store_(store),
      notifications_(users),
      wallets_(wallets),
      scenario_(scenario),
      requests_(requests),
      faults_(faults) {}

bool AdminRoutes::isAdmin(const httplib::Request& request) {
  return request.path == "/" || request.path == "/favicon.ico" || request.path.starts_with("/admin/");
}

Reply AdminRoutes::answer(const httplib::Request& request) {
  const std::string_view path = request.path;
  const auto& method = request.method;
  if (isCrossOrigin(request)) return errorReply(403, "only this service's own page may ask this");
  if (path == "/") return method == "GET" ? pageReply() : wrongMethod();
  if (path == "/admin/state") return method == "GET" ? state(request) : wrongMethod();
  if (path == "/admin/wallet") return method == "GET" || method == "POST" ? wallet(request) : wrongMethod();
  if (path == "/admin/notifications") {
    return method == "POST" || method == "DELETE" ? notifications(request) : wrongMethod();
  }
  if (path == faultsPath) {
    if (method == "GET") return listFaults();
    if (method == "POST") return orderFault(request.body);
    if (method != "DELETE") return wrongMethod();
    faults_.clear();
    return jsonReply(200, json::object());
  }
  if (path.starts_with(std::string(faultsPath) + "/")) {
    return method == "DELETE" ? clearFault(std::string(path.substr(faultsPath.size() + 1))) : wrongMethod();
  }
  return errorReply(404, "no such path");
}

Reply AdminRoutes::state(const httplib::Request& request) const {
  EventPage page;
  if (request.has_param("after")) {
    const auto after = toNumber(request.get_param_value("after"));
    if (!after) return errorReply(400, "\"after\" must be a number");
    page = store_.changesAfter(static_cast<std::int64_t>(*after), eventsPerPage);
  } else {
    page = store_.lastChanges(eventsPerPage);
  }
  auto events = json::array();
  for (const auto& event : page.events) events.push_back(eventJson(event));
  const auto counts = store_.counts();
  const auto lastOnPage = page.events.empty() ? page.revision : page.events.back().revision;
  return jsonReply(200, {{"scenario", scenario_.directory().string()},
                         {"counts",
                          {{"events", counts.events},
                           {"deliveries", counts.deliveries},
                           {"users", counts.users},
                           {"tokens", counts.tokens},
                           {"requests", requests_.count("")}}},
                         {"next", lastOnPage},
                         {"more", lastOnPage < page.revision},
                         {"events", std::move(events)},
                         {"users", usersJson(store_, wallets_.book(), notifications_)},
                         {"faults", faultsJson(faults_)}});
}

Reply AdminRoutes::wallet(const httplib::Request& request) {
  if (!hasOwner(request)) return noOwner();
  const Caller caller{request.get_param_value("app"), request.get_param_value("user"),
                      "https://" + request.get_header_value("Host")};
  return request.method == "GET" ? wallets_.show(caller) : wallets_.change(caller, request.body);
}

Reply AdminRoutes::notifications(const httplib::Request& request) {
  if (!hasOwner(request)) return noOwner();
  const WalletOwner user{request.get_param_value("app"), request.get_param_value("user")};
  if (request.method == "POST") {
    // Stays text: a payload may be nested so deeply that no recursive writer can handle it.
    const auto& payload = request.body;
    if (payload.size() > longestPayload) {
      return errorReply(400, "a payload has at most " + std::to_string(longestPayload) + " bytes");
    }
    const auto first = payload.find_first_not_of(" \t\r\n");
    if (!json::accept(payload)) return errorReply(400, "the payload is not JSON");
    if (payload[first] != '{') return errorReply(400, "the payload must be an object");
    if (!notifications_.add(user, payload)) {
      return errorReply(409, std::to_string(mostNotifications) + " notifications are already waiting");
    }
    return jsonReply(201, {{"waiting", notifications_.waiting(user)}});
  }
  std::string list;
  for (const auto& payload : notifications_.take(user)) list.append(list.empty() ? "" : ",").append(payload);
  return Reply::text(200, "[" + list + "]");
}

Reply AdminRoutes::listFaults() const {
  return jsonReply(200, {{"faults", faultsJson(faults_)}});
}

Reply AdminRoutes::orderFault(const std::string& body) {
  const auto parsed = json::parse(body, nullptr, false);
  if (parsed.is_discarded()) return errorReply(400, "the body is not JSON");
  auto fault = faultFromJson(parsed);
  if (const auto* problem = std::get_if<std::string>(&fault)) return errorReply(400, *problem);
  return jsonReply(201, {{"id", faults_.order(std::move(std::get<Fault>(fault)))}});
}

Reply AdminRoutes::clearFault(const std::string& id) {
  const auto number = toNumber(id);
  if (!number || !faults_.clear(*number)) return errorReply(404, "no such fault");
  return jsonReply(200, json::object());
}

}  // namespace orrelo::devservice
