#include "faults/FaultJson.h"

#include "JsonText.h"

#include <algorithm>
#include <array>
#include <openssl/evp.h>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace orrelo::devservice {

namespace {

using nlohmann::json;
using Kind = Fault::Kind;

constexpr std::size_t maxBodySize = std::size_t{256} * 1024 * 1024;
constexpr std::int64_t maxDelay = 3'600'000;  // an hour, in milliseconds

constexpr std::array<std::pair<Kind, const char*>, 7> kindNames{{{Kind::delay, "delay"},
                                                                 {Kind::status, "status"},
                                                                 {Kind::drop, "drop"},
                                                                 {Kind::truncate, "truncate"},
                                                                 {Kind::hang, "hang"},
                                                                 {Kind::body, "body"},
                                                                 {Kind::redirect, "redirect"}}};

constexpr std::array knownKeys{"kind", "method",     "path",   "count",       "delay",    "status",
                               "body", "bodyBase64", "repeat", "contentType", "location", "carryOut"};

/// The message for the client that sent the fault. Never thrown out of this file.
struct InvalidFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string textAt(const json& object, const char* key, std::string fallback = {}) {
  const auto found = object.find(key);
  if (found == object.end()) return fallback;
  if (!found->is_string()) throw InvalidFault("\"" + std::string(key) + "\" must be a string");
  return found->get<std::string>();
}

std::string headerTextAt(const json& object, const char* key, std::string fallback = {}) {
  auto text = textAt(object, key, std::move(fallback));
  const bool plain = std::ranges::all_of(text, [](unsigned char c) { return c >= 0x20 && c != 0x7f; });
  if (!plain) throw InvalidFault("\"" + std::string(key) + "\" must fit in a header");
  return text;
}

std::optional<std::int64_t> integerAt(const json& object, const char* key, std::int64_t least,
                                      std::int64_t most) {
  const auto found = object.find(key);
  if (found == object.end()) return std::nullopt;
  if (const auto value = integerOf(*found, least, most)) return value;
  throw InvalidFault("\"" + std::string(key) + "\" must be a whole number from " + std::to_string(least) +
                     " to " + std::to_string(most));
}

std::string decodeBase64(const std::string& text) {
  std::string bytes(text.size() / 4 * 3, '\0');
  const int length =
      EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes.data()),
                      reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
  if (length < 0 || text.size() % 4 != 0) throw InvalidFault("\"bodyBase64\" is not base64");
  const auto padding = text.ends_with("==") ? 2U : text.ends_with('=') ? 1U : 0U;
  bytes.resize(static_cast<std::size_t>(length) - padding);
  return bytes;
}

std::string bodyOf(const json& object) {
  if (object.contains("body") && object.contains("bodyBase64")) {
    throw InvalidFault("give \"body\" or \"bodyBase64\", not both");
  }
  const auto once =
      object.contains("bodyBase64") ? decodeBase64(textAt(object, "bodyBase64")) : textAt(object, "body");
  const auto repeat = integerAt(object, "repeat", 1, maxBodySize).value_or(1);
  const auto times = static_cast<std::size_t>(repeat);
  if (once.size() > maxBodySize / times) throw InvalidFault("the body is larger than 256 MiB");
  std::string body;
  body.reserve(once.size() * times);
  for (std::size_t i = 0; i < times; ++i) body += once;
  return body;
}

Kind kindOf(const json& object) {
  const auto name = textAt(object, "kind");
  const auto* const found =
      std::ranges::find_if(kindNames, [&](const auto& entry) { return entry.second == name; });
  if (found == kindNames.end()) {
    throw InvalidFault("\"kind\" must be delay, status, drop, truncate, hang, body or redirect");
  }
  return found->first;
}

Fault parse(const json& object) {
  if (!object.is_object()) throw InvalidFault("a fault must be an object");
  for (const auto& [key, value] : object.items()) {
    if (std::ranges::find(knownKeys, key) == knownKeys.end())
      throw InvalidFault("\"" + key + "\" is not known");
  }
  Fault fault;
  fault.kind = kindOf(object);
  fault.method = textAt(object, "method");
  fault.pathSuffix = textAt(object, "path");
  if (const auto count = integerAt(object, "count", 1, INT32_MAX)) fault.count = static_cast<int>(*count);
  fault.delay = std::chrono::milliseconds(integerAt(object, "delay", 0, maxDelay).value_or(0));
  if (const auto status = integerAt(object, "status", 200, 599)) fault.status = static_cast<int>(*status);
  fault.body = bodyOf(object);
  fault.contentType = headerTextAt(object, "contentType", fault.contentType);
  fault.location = headerTextAt(object, "location");
  if (const auto found = object.find("carryOut"); found != object.end()) {
    if (!found->is_boolean()) throw InvalidFault("\"carryOut\" must be true or false");
    fault.carryOut = found->get<bool>();
  }
  if (fault.kind == Kind::redirect && fault.location.empty())
    throw InvalidFault("a redirect needs a \"location\"");
  return fault;
}

}  // namespace

std::variant<Fault, std::string> faultFromJson(const json& object) {
  try {
    return parse(object);
  } catch (const InvalidFault& error) {
    return std::string(error.what());
  }
}

json faultToJson(const OrderedFault& ordered) {
  const auto& fault = ordered.fault;
  const auto* const name =
      std::ranges::find_if(kindNames, [&](const auto& entry) { return entry.first == fault.kind; });
  json result{{"id", ordered.id},
              {"kind", name->second},
              {"method", fault.method},
              {"path", fault.pathSuffix},
              {"delay", fault.delay.count()},
              {"bodySize", fault.body.size()},
              {"contentType", fault.contentType},
              {"location", fault.location},
              {"carryOut", fault.carryOut},
              {"applied", ordered.applied},
              {"waiting", ordered.waiting}};
  if (fault.status) result["status"] = *fault.status;
  if (ordered.remaining) result["remaining"] = *ordered.remaining;
  return result;
}

}  // namespace orrelo::devservice
