#include <orrelo/EventValue.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <new>
#include <utility>

namespace orrelo {

EventSet::EventSet() = default;
EventSet::EventSet(std::initializer_list<EventValue> values) : EventSet(EventArray(values)) {}

EventSet::EventSet(const EventArray& values) {
  for (const auto& value : values) {
    if (std::find(elements.begin(), elements.end(), value) == elements.end()) elements.push_back(value);
  }
}

double EventValue::toDouble(float value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  double decimal = value;
  std::from_chars(digits.data(), end, decimal);
  return decimal;
}

EventValue EventValue::other(const std::type_info& type) {
  const std::unique_ptr<char, decltype(&std::free)> demangled(
      abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr), &std::free);
  EventValue value;
  value.value_ = EventOther{demangled ? demangled.get() : type.name()};
  return value;
}

void EventValue::takeCollections(EventArray& out) {
  const auto take = [&out](EventValue& value) {
    if (value.isCollection()) out.push_back(std::exchange(value, EventValue()));
  };
  if (auto* const dictionary = std::get_if<EventDictionary>(&value_)) {
    for (auto& [key, value] : *dictionary) take(value);
  } else if (auto* const array = std::get_if<EventArray>(&value_)) {
    for (auto& value : *array) take(value);
  } else if (auto* const set = std::get_if<EventSet>(&value_)) {
    for (auto& value : set->elements) take(value);
  }
}

void EventValue::flatten() noexcept {
  EventArray waiting;
  try {
    takeCollections(waiting);
    while (!waiting.empty()) {
      auto value = std::move(waiting.back());
      waiting.pop_back();
      value.takeCollections(waiting);
    }
  } catch (const std::bad_alloc&) {
    // The values that are left destroy their own collections, one level of the stack for each level of them.
  }
}

bool operator==(const EventValue& a, const EventValue& b) {
  if (a.value_.index() != b.value_.index()) return false;
  return std::visit(
      [&b]<class T>(const T& left) {
        if constexpr (std::is_same_v<T, EventOther>) {
          return false;  // the value itself is unknown
        } else if constexpr (std::is_same_v<T, EventSet>) {
          return left.elements == std::get<EventSet>(b.value_).elements;
        } else {
          return left == std::get<T>(b.value_);
        }
      },
      a.value_);
}

}  // namespace orrelo
