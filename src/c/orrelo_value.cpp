#include "c/handles.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

namespace orrelo::c {
namespace {

template <int type, class T>
constexpr bool isOf = std::is_same_v<std::variant_alternative_t<type, EventValue::Variant>, T>;
static_assert(isOf<ORRELO_TYPE_NULL, std::monostate>);
static_assert(isOf<ORRELO_TYPE_BOOL, bool>);
static_assert(isOf<ORRELO_TYPE_INTEGER, std::int64_t>);
static_assert(isOf<ORRELO_TYPE_NUMBER, double>);
static_assert(isOf<ORRELO_TYPE_TEXT, std::string>);
static_assert(isOf<ORRELO_TYPE_DATE, Date>);
static_assert(isOf<ORRELO_TYPE_UUID, Uuid>);
static_assert(isOf<ORRELO_TYPE_URL, Url>);
static_assert(isOf<ORRELO_TYPE_LIST, EventArray>);
static_assert(isOf<ORRELO_TYPE_SET, EventSet>);
static_assert(isOf<ORRELO_TYPE_DICTIONARY, EventDictionary>);
static_assert(isOf<ORRELO_TYPE_BYTES, EventBytes>);
static_assert(isOf<ORRELO_TYPE_OTHER, EventOther>);
static_assert(std::variant_size_v<EventValue::Variant> == ORRELO_TYPE_OTHER + 1);

/// The nesting that copies of a value can have on any thread's stack.
constexpr std::size_t maximumDepth = 512;

template <class T>
const T* as(const orrelo_value* value) {
  return value == nullptr ? nullptr : std::get_if<T>(&in(value)->variant());
}

template <class T>
const T& require(const orrelo_value* value) {
  required(value, "value");
  const auto* const found = as<T>(value);
  if (found == nullptr) throw CallFailure{ORRELO_INVALID_ARGUMENT, "the value is of another type"};
  return *found;
}

const EventArray* elementsOf(const orrelo_value* value) {
  if (const auto* const set = as<EventSet>(value)) return &set->elements;
  return as<EventArray>(value);
}

std::size_t depthOf(const EventValue& value) {
  std::size_t depth = 0;
  if (const auto* const elements = elementsOf(out(&value))) {
    for (const auto& element : *elements) depth = std::max(depth, depthOf(element));
  } else if (const auto* const entries = as<EventDictionary>(out(&value))) {
    for (const auto& [key, entry] : *entries) depth = std::max(depth, depthOf(entry));
  }
  return depth + 1;
}

// A handle of a collection is its owner's: elements are handed out as const.
void append(EventValue& collection, EventValue element) {
  auto& variant = const_cast<EventValue::Variant&>(collection.variant());
  if (auto* const list = std::get_if<EventArray>(&variant)) {
    list->push_back(std::move(element));
  } else if (auto* const set = std::get_if<EventSet>(&variant)) {
    const auto& present = set->elements;
    if (std::find(present.begin(), present.end(), element) == present.end()) {
      set->elements.push_back(std::move(element));
    }
  } else {
    throw CallFailure{ORRELO_INVALID_ARGUMENT, "the value is neither a list nor a set"};
  }
}

template <class Make>
orrelo_value* make(const Make& value) {
  return attemptNew([&] { return out(new EventValue(value())); });
}

template <class T, class Result>
orrelo_status get(const orrelo_value* value, Result* result) {
  return attempt([&] { *required(result, "result") = require<T>(value); });
}

}  // namespace

void requireRoom(const EventValue& element) {
  if (depthOf(element) < maximumDepth) return;
  throw CallFailure{ORRELO_INVALID_ARGUMENT, "the value has more than 512 levels"};
}

}  // namespace orrelo::c

using namespace orrelo;
using namespace orrelo::c;

orrelo_value* orrelo_value_new_null() {
  return make([] { return EventValue(); });
}

orrelo_value* orrelo_value_new_bool(bool value) {
  return make([&] { return EventValue(value); });
}

orrelo_value* orrelo_value_new_integer(int64_t value) {
  return make([&] { return EventValue(value); });
}

orrelo_value* orrelo_value_new_number(double value) {
  return make([&] { return EventValue(value); });
}

orrelo_value* orrelo_value_new_text(const char* text) {
  return make([&] { return EventValue(required(text, "text")); });
}

orrelo_value* orrelo_value_new_date(int64_t microseconds) {
  return make([&] { return EventValue(Date(std::chrono::microseconds(microseconds))); });
}

orrelo_value* orrelo_value_new_uuid(const uint8_t* bytes) {
  return make([&] {
    Uuid::Bytes copy{};
    std::copy_n(required(bytes, "bytes"), copy.size(), copy.begin());
    return EventValue(Uuid(copy));
  });
}

orrelo_value* orrelo_value_new_url(const char* text) {
  return make([&] {
    auto url = Url::parse(required(text, "text"));
    if (!url) throw CallFailure{ORRELO_INVALID_ARGUMENT, "the text is not a URL"};
    return EventValue(*std::move(url));
  });
}

orrelo_value* orrelo_value_new_bytes(const void* bytes, size_t size) {
  return make([&] {
    if (size == 0) return EventValue(EventBytes());
    const auto* const first = static_cast<const std::byte*>(required(bytes, "bytes"));
    return EventValue(EventBytes(first, first + size));
  });
}

orrelo_value* orrelo_value_new_other(const char* typeName) {
  return make([&] { return EventValue(EventOther{required(typeName, "typeName")}); });
}

orrelo_value* orrelo_value_new_list() {
  return make([] { return EventValue(EventArray()); });
}

orrelo_value* orrelo_value_new_set() {
  return make([] { return EventValue(EventSet()); });
}

orrelo_value* orrelo_value_new_dictionary(orrelo_values* entries) {
  const std::unique_ptr<EventDictionary> owned(in(entries));
  return make([&] { return EventValue(std::move(*required(owned.get(), "entries"))); });
}

orrelo_status orrelo_value_append(orrelo_value* collection, orrelo_value* element) {
  const std::unique_ptr<EventValue> owned(collection == element ? nullptr : in(element));
  return attempt([&] {
    required(collection, "collection");
    requireRoom(*required(owned.get(), "element"));
    append(*in(collection), std::move(*owned));
  });
}

orrelo_value* orrelo_value_copy(const orrelo_value* value) {
  return make([&] { return *in(required(value, "value")); });
}

void orrelo_value_free(orrelo_value* value) {
  delete in(value);
}

int32_t orrelo_value_type(const orrelo_value* value) {
  return value == nullptr ? -1 : static_cast<int32_t>(in(value)->variant().index());
}

orrelo_status orrelo_value_get_bool(const orrelo_value* value, bool* result) {
  return get<bool>(value, result);
}

orrelo_status orrelo_value_get_integer(const orrelo_value* value, int64_t* result) {
  return get<std::int64_t>(value, result);
}

orrelo_status orrelo_value_get_number(const orrelo_value* value, double* result) {
  return get<double>(value, result);
}

orrelo_status orrelo_value_get_date(const orrelo_value* value, int64_t* result) {
  return attempt([&] { *required(result, "result") = require<Date>(value).sinceEpoch().count(); });
}

orrelo_status orrelo_value_get_uuid(const orrelo_value* value, uint8_t* result) {
  return attempt([&] {
    const auto& bytes = require<Uuid>(value).bytes();
    std::copy(bytes.begin(), bytes.end(), required(result, "result"));
  });
}

const char* orrelo_value_get_text(const orrelo_value* value, size_t* length) {
  return attemptNew([&] {
    const std::string* text = as<std::string>(value);
    if (const auto* const url = as<Url>(value)) text = &url->text();
    if (const auto* const other = as<EventOther>(value)) text = &other->typeName;
    if (text == nullptr) text = &require<std::string>(value);
    if (length != nullptr) *length = text->size();
    return text->c_str();
  });
}

const void* orrelo_value_get_bytes(const orrelo_value* value, size_t* size) {
  return attemptNew([&]() -> const void* {
    const auto& bytes = require<EventBytes>(value);
    *required(size, "size") = bytes.size();
    return bytes.empty() ? static_cast<const void*>(&bytes) : bytes.data();
  });
}

const orrelo_values* orrelo_value_get_dictionary(const orrelo_value* value) {
  return attemptNew([&] { return out(&require<EventDictionary>(value)); });
}

size_t orrelo_value_count(const orrelo_value* value) {
  const auto* const elements = elementsOf(value);
  return elements == nullptr ? 0 : elements->size();
}

const orrelo_value* orrelo_value_element(const orrelo_value* value, size_t index) {
  const auto* const elements = elementsOf(value);
  return elements == nullptr || index >= elements->size() ? nullptr : out(&(*elements)[index]);
}
