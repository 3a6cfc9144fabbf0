#include "base/Json.h"
#include "c/handles.h"
#include "kit/eventDictionary.h"

#include <orrelo/Error.h>

#include <iterator>
#include <memory>
#include <utility>

using namespace orrelo;
using namespace orrelo::c;

namespace orrelo::c {
namespace {

EventDictionary parsed(const char* json) {
  JsonParser parser;
  try {
    if (const auto object = parser.parse(json).asObject()) return eventDictionary(*object);
  } catch (const Error& error) {
    throw CallFailure{ORRELO_INVALID_ARGUMENT, error.localizedDescription()};
  }
  throw CallFailure{ORRELO_INVALID_ARGUMENT, "the JSON text is not an object"};
}

orrelo_status set(orrelo_values* values, const char* key, orrelo_value* value) {
  // What could not be made has stored its status already.
  return value == nullptr ? orrelo_last_status() : orrelo_values_set(values, key, value);
}

}  // namespace
}  // namespace orrelo::c

orrelo_values* orrelo_values_new() {
  return attemptNew([] { return out(new EventDictionary); });
}

orrelo_values* orrelo_values_from_json(const char* json) {
  return attemptNew([&] { return out(new EventDictionary(parsed(required(json, "json")))); });
}

orrelo_values* orrelo_values_copy(const orrelo_values* values) {
  return attemptNew([&] { return out(new EventDictionary(*in(required(values, "values")))); });
}

void orrelo_values_free(orrelo_values* values) {
  delete in(values);
}

orrelo_status orrelo_values_set(orrelo_values* values, const char* key, orrelo_value* value) {
  const std::unique_ptr<EventValue> owned(in(value));
  return attempt([&] {
    required(values, "values");
    required(key, "key");
    requireRoom(*required(owned.get(), "value"));
    in(values)->insert_or_assign(key, std::move(*owned));
  });
}

orrelo_status orrelo_values_set_bool(orrelo_values* values, const char* key, bool value) {
  return set(values, key, orrelo_value_new_bool(value));
}

orrelo_status orrelo_values_set_integer(orrelo_values* values, const char* key, int64_t value) {
  return set(values, key, orrelo_value_new_integer(value));
}

orrelo_status orrelo_values_set_number(orrelo_values* values, const char* key, double value) {
  return set(values, key, orrelo_value_new_number(value));
}

orrelo_status orrelo_values_set_text(orrelo_values* values, const char* key, const char* text) {
  return set(values, key, orrelo_value_new_text(text));
}

size_t orrelo_values_count(const orrelo_values* values) {
  return values == nullptr ? 0 : in(values)->size();
}

const char* orrelo_values_key(const orrelo_values* values, size_t index) {
  if (index >= orrelo_values_count(values)) return nullptr;
  return std::next(in(values)->begin(), static_cast<std::ptrdiff_t>(index))->first.c_str();
}

const orrelo_value* orrelo_values_get(const orrelo_values* values, const char* key) {
  if (values == nullptr || key == nullptr) return nullptr;
  const auto found = in(values)->find(std::string_view(key));
  return found == in(values)->end() ? nullptr : out(&found->second);
}
