#include "readPayload.h"

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

namespace orrelo::notification {
namespace {

using Json = nlohmann::json;

constexpr int maximumDepth = 100;

EventDictionary dictionaryOf(const Json& object, int depth);

EventValue valueOf(const Json& json, int depth) {
  if (depth > maximumDepth) return nullptr;
  switch (json.type()) {
    case Json::value_t::boolean:
      return json.get<bool>();
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      return json.get<std::uint64_t>();
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get<std::string>();
    case Json::value_t::object:
      return dictionaryOf(json, depth);
    case Json::value_t::array: {
      EventArray array;
      for (const auto& element : json) array.push_back(valueOf(element, depth + 1));
      return array;
    }
    default:
      return nullptr;
  }
}

EventDictionary dictionaryOf(const Json& object, int depth) {
  EventDictionary dictionary;
  for (const auto& [key, value] : object.items()) dictionary.emplace(key, valueOf(value, depth + 1));
  return dictionary;
}

EventDictionary dictionaryOf(const Json& parsed) {
  if (!parsed.is_object()) throw std::runtime_error("a notification must be a JSON object");
  return dictionaryOf(parsed, 0);
}

}  // namespace

EventDictionary payloadOf(std::string_view json) {
  return dictionaryOf(Json::parse(json, nullptr, false));
}

std::vector<EventDictionary> payloadsOf(std::string_view json) {
  const auto parsed = Json::parse(json, nullptr, false);
  if (!parsed.is_array()) throw std::runtime_error("the notifications are not a JSON array");
  std::vector<EventDictionary> payloads;
  for (const auto& element : parsed) payloads.push_back(dictionaryOf(element));
  return payloads;
}

EventDictionary readPayload(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error(file + " cannot be read");
  return payloadOf(std::string(std::istreambuf_iterator<char>(stream), {}));
}

}  // namespace orrelo::notification
