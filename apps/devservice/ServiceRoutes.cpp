#include "ServiceRoutes.h"

#include "JsonText.h"
#include "barcode/BarcodePicture.h"
#include "scenario/MessagesFile.h"
#include "scenario/Placeholders.h"

#include <array>
#include <chrono>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

namespace orrelo::devservice {

namespace {

constexpr std::string_view servicePrefix = "/orreloservice/sdk/";

constexpr std::string_view imagePrefix = "/images/";
constexpr std::string_view pagePrefix = "/pages/";

constexpr std::array identityHeaders{"Kelso-UUID", "sdk_version", "sdk_build_number",
                                     "os_version", "locale",      "timezone",
                                     "app_name",   "app_version", "app_version_code"};

TimePoint now() {
  return std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

/// The reason why an event is invalid; absent if it is valid.
std::optional<std::string> problemWith(const nlohmann::json& event) {
  if (!event.is_object()) return "an event must be an object";
  for (const auto& [key, value] : event.items()) {
    if (!value.is_string()) return "the value of \"" + key + "\" must be a string";
  }
  // A host may report an event without a name, but none without an identity or a time.
  for (const auto* key : {"event_id", "event_name", "event_time"}) {
    const auto text = stringAt(event, key);
    if (!text || (text->empty() && key != std::string_view("event_name")))
      return "\"" + std::string(key) + "\" is missing";
  }
  return std::nullopt;
}

std::string identityOf(const httplib::Request& request) {
  auto headers = nlohmann::json::object();
  for (const auto* name : identityHeaders) {
    if (request.has_header(name)) headers[name] = request.get_header_value(name);
  }
  return toText(headers);
}

/// The path parts that match the pattern's "*"; absent if the path does not match.
std::optional<std::vector<std::string>> match(std::string_view pattern, std::string_view path) {
  const auto cutPart = [](std::string_view& rest) {
    const auto part = rest.substr(0, rest.find('/', 1));
    rest.remove_prefix(part.size());
    return part;
  };
  std::vector<std::string> found;
  while (!pattern.empty() && !path.empty()) {
    const auto expected = cutPart(pattern);
    const auto part = cutPart(path);
    if (expected == "/*" && part.size() > 1) {
      found.emplace_back(part.substr(1));
    } else if (expected != part) {
      return std::nullopt;
    }
  }
  return pattern.empty() && path.empty() ? std::optional(found) : std::nullopt;
}

std::string contentTypeOf(std::string_view name) {
  for (const auto& [ending, type] : {std::pair{".png", "image/png"},
                                     {".jpg", "image/jpeg"},
                                     {".webp", "image/webp"},
                                     {".gif", "image/gif"}}) {
    if (name.ends_with(ending)) return type;
  }
  return "application/octet-stream";
}

/// The reply to a user id or token that is too long to be stored.
std::optional<Reply> tooLong(const std::string& key, const std::string& text) {
  if (text.size() <= longestToken) return std::nullopt;
  return errorReply(400, "\"" + key + "\" is longer than " + std::to_string(longestToken) + " bytes");
}

}  // namespace

ServiceRoutes::ServiceRoutes(EventStore& store, UserDatabase& users, Wallets& wallets,
                             const Scenario& scenario)
    : eventStore_(store),
      scenario_(scenario),
      wallets_(wallets),
      referralBook_(users),
      campaigns_(users, wallets, referralBook_, scenario),
      referrals_(users, wallets, referralBook_, campaigns_) {}

const std::vector<ServiceRoutes::Route>& ServiceRoutes::table() {
  static const std::vector<Route> routes{
      {"GET", "/config", &ServiceRoutes::config},
      {"POST", "/event", &ServiceRoutes::receiveEvent},
      {"POST", "/events", &ServiceRoutes::receiveEvents},
      {"POST", "/token", &ServiceRoutes::saveToken},
      {"GET", "/campaigns", &ServiceRoutes::listCampaigns},
      {"GET", "/campaigns/*", &ServiceRoutes::campaign},
      {"GET", "/campaigns/*/*", &ServiceRoutes::participate, true},
      {"POST", "/referrals/*/verification", &ServiceRoutes::verifyCode, true},
      {"POST", "/referrals/*/authorization", &ServiceRoutes::authorizeCode, true},
      {"GET", "/fab", &ServiceRoutes::floatingButton},
      {"GET", "/in-app-message/banner", &ServiceRoutes::messages, true},
      {"GET", "/pointsystem/my-point", &ServiceRoutes::pointBalance, true},
      {"GET", "/pointsystem/point-redemption-history", &ServiceRoutes::pointHistory, true},
      {"GET", "/my-rewards", &ServiceRoutes::rewardCounts, true},
      {"GET", "/gifticons", &ServiceRoutes::vouchers, true},
      {"POST", "/gifticons/download", &ServiceRoutes::issueVoucher, true},
  };
  return routes;
}

Reply ServiceRoutes::answer(const httplib::Request& request) {
  const std::string_view path = request.path;
  if (request.method == "GET" && path.starts_with(imagePrefix)) {
    return image(std::string(path.substr(imagePrefix.size())));
  }
  if (request.method == "GET" && path.starts_with(pagePrefix)) {
    return page(std::string(path.substr(pagePrefix.size())));
  }
  if (request.method == "GET" && path == "/lookup") return lookup();
  if (request.method == "GET") {
    if (auto picture = BarcodePicture::at(path)) return Reply::text(200, *std::move(picture), "image/png");
  }
  if (!path.starts_with(servicePrefix)) return errorReply(404, "no such path");
  const auto rest = path.substr(servicePrefix.size());
  const auto slash = rest.find('/');
  if (slash == std::string_view::npos || slash == 0) return errorReply(404, "no such path");
  Call call{std::string(rest.substr(0, slash)), std::string(rest.substr(slash)), request};

  for (const auto& route : table()) {
    auto parts = match(route.path, call.path);
    if (!parts) continue;
    call.parts = std::move(*parts);
    if (request.method == route.method) {
      if (route.needsUser && !request.has_header("buid")) return errorReply(400, "\"buid\" is missing");
      if (auto reply = tooLong("buid", request.get_header_value("buid"))) return *std::move(reply);
      return (this->*route.handler)(call);
    }
    auto reply = errorReply(405, "this path takes " + std::string(route.method));
    reply.headers.emplace_back("Allow", route.method);
    return reply;
  }
  return errorReply(404, "no such path");
}

Reply ServiceRoutes::config(const Call& call) {
  const auto body = scenario_.config(call.appKey);
  if (!body) return errorReply(404, "the scenario has no config.json");
  return Reply::text(200, fillIn(*body, callerOf(call), scenario_));
}

Reply ServiceRoutes::receiveEvent(const Call& call) {
  const auto json = nlohmann::json::parse(call.http.body, nullptr, false);
  if (json.is_discarded()) return errorReply(400, "the body is not JSON");
  if (const auto problem = problemWith(json)) return errorReply(400, *problem);
  return store(call, {{json.get<std::map<std::string, std::string>>(), toText(json)}});
}

Reply ServiceRoutes::receiveEvents(const Call& call) {
  const auto json = nlohmann::json::parse(call.http.body, nullptr, false);
  if (json.is_discarded()) return errorReply(400, "the body is not JSON");
  if (!json.is_array()) return errorReply(400, "the body must be an array of events");
  std::vector<IncomingEvent> events;
  events.reserve(json.size());
  for (const auto& event : json) {
    if (const auto problem = problemWith(event)) {
      return errorReply(400, "event " + std::to_string(events.size()) + ": " + *problem);
    }
    events.push_back({event.get<std::map<std::string, std::string>>(), toText(event)});
  }
  return store(call, events);
}

Reply ServiceRoutes::store(const Call& call, const std::vector<IncomingEvent>& events) {
  const auto result = eventStore_.add(events, {call.appKey, call.path, identityOf(call.http), now()});
  return jsonReply(200, {{"received", result.received}, {"duplicates", result.duplicates}});
}

Reply ServiceRoutes::saveToken(const Call& call) {
  const auto json = nlohmann::json::parse(call.http.body, nullptr, false);
  if (json.is_discarded()) return errorReply(400, "the body is not JSON");
  if (!json.is_object()) return errorReply(400, "the body must be an object");
  const auto token = stringAt(json, "token");
  const auto userId = stringAt(json, "buid");
  if (!token || token->empty()) return errorReply(400, "\"token\" is missing");
  if (!userId) return errorReply(400, "\"buid\" is missing");
  if (auto reply = tooLong("token", *token)) return *std::move(reply);
  if (auto reply = tooLong("buid", *userId)) return *std::move(reply);
  eventStore_.saveToken(call.appKey, *userId, *token, now());
  return jsonReply(200, nlohmann::json::object());
}

Caller ServiceRoutes::callerOf(const Call& call) {
  return {call.appKey, call.http.get_header_value("buid"), "https://" + call.http.get_header_value("Host")};
}

Reply ServiceRoutes::listCampaigns(const Call& call) {
  return campaigns_.list(callerOf(call));
}

Reply ServiceRoutes::campaign(const Call& call) {
  return campaigns_.one(callerOf(call), call.parts.at(0));
}

Reply ServiceRoutes::participate(const Call& call) {
  return campaigns_.participate(callerOf(call), call.parts.at(0), call.parts.at(1));
}

Reply ServiceRoutes::verifyCode(const Call& call) {
  return referrals_.verify(callerOf(call), call.parts.at(0), call.http.body);
}

Reply ServiceRoutes::authorizeCode(const Call& call) {
  return referrals_.authorize(callerOf(call), call.parts.at(0), call.http.body);
}

Reply ServiceRoutes::floatingButton(const Call& call) {
  const auto body = scenario_.floatingButton(call.appKey);
  if (!body) return errorReply(404, "the scenario has no fab.json");
  return Reply::text(200, fillIn(*body, callerOf(call), scenario_));
}

Reply ServiceRoutes::messages(const Call& call) {
  const auto text = scenario_.messages(call.appKey);
  if (!text) return jsonReply(200, noMessages());
  return jsonReply(
      200, messagesFromText(fillIn(*text, callerOf(call), scenario_), scenario_.campaigns(call.appKey)));
}

Reply ServiceRoutes::pointBalance(const Call& call) {
  return wallets_.balance(callerOf(call));
}

Reply ServiceRoutes::pointHistory(const Call& call) {
  return wallets_.history(callerOf(call), call.http.get_param_value("page"));
}

Reply ServiceRoutes::rewardCounts(const Call& call) {
  return wallets_.counts(callerOf(call));
}

Reply ServiceRoutes::vouchers(const Call& call) {
  return wallets_.vouchers(callerOf(call));
}

Reply ServiceRoutes::issueVoucher(const Call& call) {
  return wallets_.issue(callerOf(call), call.http.body);
}

Reply ServiceRoutes::image(const std::string& name) const {
  auto bytes = scenario_.image(name);
  if (!bytes) return errorReply(404, "the scenario has no such image");
  return Reply::text(200, std::move(*bytes), contentTypeOf(name));
}

Reply ServiceRoutes::page(const std::string& name) const {
  auto bytes = scenario_.page(name);
  if (!bytes) return errorReply(404, "the scenario has no such page");
  return Reply::text(200, std::move(*bytes), "text/html; charset=utf-8");
}

Reply ServiceRoutes::lookup() const {
  return Reply::text(200, scenario_.lookup().value_or(R"({"resultCount":0,"results":[]})"));
}

}  // namespace orrelo::devservice
