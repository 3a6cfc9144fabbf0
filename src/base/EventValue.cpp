#include <orrelo/EventValue.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>

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
