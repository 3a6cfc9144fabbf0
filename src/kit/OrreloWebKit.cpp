#include "base/Error.h"
#include "base/Json.h"
#include "kit/eventDictionary.h"

#include <orrelo/Orrelo.h>
#include <orrelo/OrreloWebKit.h>

#include <array>

namespace orrelo {
namespace {

using Result = std::optional<OrreloWebkitError>;
using Screen = std::shared_ptr<ViewController>;
using NotJson = OrreloWebkitError::BodyIsNotJsonConvetableFormat;
using Missing = OrreloWebkitError::RequiredParamterNotSpecified;

// The parser of a thread keeps the memory for bodies up to this size, in bytes.
constexpr std::size_t usualSize = std::size_t{16} * 1024;

std::optional<std::string_view> textAt(const JsonObject& json, std::string_view key) {
  const auto value = json.find(key);
  return value ? value->asText() : std::nullopt;
}

std::optional<JsonObject> objectAt(const JsonObject& json, std::string_view key) {
  const auto value = json.find(key);
  return value ? value->asObject() : std::nullopt;
}

// A single value that is not a text makes all properties empty.
EventValues propertiesAt(const JsonObject& parameters) {
  EventValues properties;
  const auto object = objectAt(parameters, "properties");
  if (!object) return properties;
  bool hasOnlyTexts = true;
  object->forEach([&](std::string_view key, const JsonValue& value) {
    const auto text = value.asText();
    if (text) properties.try_emplace(std::string(key), *text);
    hasOnlyTexts = hasOnlyTexts && text.has_value();
  });
  return hasOnlyTexts ? properties : EventValues();
}

Result setUser(const JsonObject& parameters) {
  const auto userId = textAt(parameters, "user_id");
  if (!userId) return Missing{"user_id"};
  Orrelo::setUser(ORLUser(std::string(*userId), ORLMarketingStatus::unknown, propertiesAt(parameters)));
  return std::nullopt;
}

Result sendEvent(const JsonObject& parameters) {
  const auto name = textAt(parameters, "event_name");
  if (!name) return Missing{"event_name"};
  const auto values = objectAt(parameters, "event_values");
  Orrelo::sendEvent(*name, values ? eventDictionary(*values) : EventValues());
  return std::nullopt;
}

struct Method {
  std::string_view name;
  /// Null for a method that shows a screen, which ignores the parameters.
  Result (*run)(const JsonObject& parameters);
  void (*show)(const Screen& with);
};

constexpr std::array methods{
    Method{"setUser", &setUser, nullptr},
    Method{"showHome", nullptr, &Orrelo::showHome},
    Method{"showInAppMessage", nullptr, &Orrelo::showInAppMessage},
    Method{"showNaverPayExchange", nullptr, &Orrelo::showNaverPayExchange},
    Method{"sendEvent", &sendEvent, nullptr},
};

Result dispatch(const Screen& with, const JsonObject& message) {
  const auto name = textAt(message, "method");
  if (!name) return OrreloWebkitError::MethodNotSpecified();
  for (const auto& method : methods) {
    if (method.name != *name) continue;
    if (method.show != nullptr) return method.show(with), std::nullopt;
    const auto parameters = objectAt(message, "parameters");
    return parameters ? method.run(*parameters) : Missing{"parameters"};
  }
  return OrreloWebkitError::UnknownMethod();
}

std::optional<JsonObject> parse(JsonParser& parser, std::string_view body) {
  try {
    return parser.parse(body).asObject();
  } catch (const Error&) {
    return std::nullopt;
  }
}

Result handleText(const Screen& with, const std::string& body) {
  // A façade call may call back and handle another message on this thread.
  static thread_local std::unique_ptr<JsonParser> kept;
  auto parser = std::move(kept);
  if (!parser || body.size() > usualSize) parser = std::make_unique<JsonParser>();
  const auto message = parse(*parser, body);
  if (!message) return NotJson{body};
  auto result = dispatch(with, *message);
  if (body.size() <= usualSize) kept = std::move(parser);
  return result;
}

}  // namespace

std::string_view OrreloWebkitError::caseName() const {
  static constexpr std::array names{
      std::string_view("bodyIsNotJsonConvetableFormat"), std::string_view("requiredParamterNotSpecified"),
      std::string_view("bodyIsNotSpecified"), std::string_view("methodNotSpecified"),
      std::string_view("unknownMethod")};
  static_assert(names.size() == std::variant_size_v<Variant>);
  return names[value_.index()];
}

std::string OrreloWebkitError::description() const {
  const auto* const missing = std::get_if<Missing>(&value_);
  const auto name = std::string(caseName());
  return missing != nullptr && missing->key ? name + "(" + *missing->key + ")" : name;
}

std::optional<OrreloWebkitError> OrreloWebKit::handle(const Screen& with, std::string_view messageName,
                                                      const EventValue& messageBody) {
  if (messageName != handlerName) return std::nullopt;
  const auto* const text = std::get_if<std::string>(&messageBody.variant());
  if (text == nullptr) return NotJson{messageBody};
  return handleText(with, *text);
}

std::optional<OrreloWebkitError> OrreloWebKit::handle(const Screen& with, const ScriptMessage& message) {
  return handle(with, message.name, message.body);
}

bool OrreloWebKit::handleWith(const Screen& with, std::string_view messageName, const EventValue& messageBody,
                              std::optional<OrreloWebkitError>* error) {
  auto result = handle(with, messageName, messageBody);
  if (!result) return true;
  if (error != nullptr) *error = std::move(result);
  return false;
}

bool OrreloWebKit::handleWith(const Screen& with, const ScriptMessage& message,
                              std::optional<OrreloWebkitError>* error) {
  return handleWith(with, message.name, message.body, error);
}

}  // namespace orrelo
