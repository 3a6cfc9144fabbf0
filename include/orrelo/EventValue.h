#pragma once

#include <orrelo/Date.h>
#include <orrelo/Export.h>
#include <orrelo/Url.h>
#include <orrelo/Uuid.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>
#include <vector>

namespace orrelo {

class EventValue;

/// A list of values, in order.
using EventArray = std::vector<EventValue>;
/// Values by their names.
using EventDictionary = std::map<std::string, EventValue, std::less<>>;
/// Bytes, which events cannot carry.
using EventBytes = std::vector<std::byte>;

/// Distinct values, in the order of their first insertion.
struct ORRELO_EXPORT EventSet {
  EventSet();
  EventSet(std::initializer_list<EventValue> values);
  explicit EventSet(const EventArray& values);

  EventArray elements;
};

/// A value of a type unknown to the kit. Holds only the type's name.
struct EventOther {
  std::string typeName;
};

namespace detail {

template <class T>
inline constexpr bool isCharacter =
    std::same_as<T, char> || std::same_as<T, wchar_t> || std::same_as<T, char8_t> ||
    std::same_as<T, char16_t> || std::same_as<T, char32_t>;

}  // namespace detail

/// One value of a host event. It can hold null, bytes and values of unknown types, so that a host can pass
/// any value, but Orrelo::sendEvent rejects an event that holds one of them at its top level.
///
/// Copying and comparing need stack for each level of nested collections. The kit neither copies nor compares
/// the payload of a notification.
///
///     EventValues values{{"item", "Blue shoes"}, {"price", 39.9}, {"sizes", EventArray{41, 42}}};
class ORRELO_EXPORT EventValue {
 public:
  using Variant = std::variant<std::monostate, bool, std::int64_t, double, std::string, Date, Uuid, Url,
                               EventArray, EventSet, EventDictionary, EventBytes, EventOther>;

  EventValue() = default;
  EventValue(std::nullptr_t) {}
  EventValue(std::same_as<bool> auto value) : value_(value) {}
  /// A number outside the range of std::int64_t is stored as its decimal text.
  template <std::integral Integer>
  requires(!std::same_as<Integer, bool> && !detail::isCharacter<Integer>) EventValue(Integer value)
      : value_(std::in_range<std::int64_t>(value) ? Variant(static_cast<std::int64_t>(value))
                                                  : Variant(std::to_string(value))) {}
  /// A float is converted through its shortest decimal form: 39.9f is stored as 39.9.
  EventValue(std::floating_point auto value) : value_(toDouble(value)) {}
  EventValue(const char* text) : value_(std::string(text)) {}
  EventValue(std::string_view text) : value_(std::string(text)) {}
  EventValue(std::string text) : value_(std::move(text)) {}
  EventValue(Date date) : value_(date) {}
  EventValue(Uuid uuid) : value_(uuid) {}
  EventValue(Url url) : value_(std::move(url)) {}
  EventValue(EventArray array) : value_(std::move(array)) {}
  EventValue(EventSet set) : value_(std::move(set)) {}
  EventValue(EventDictionary dictionary) : value_(std::move(dictionary)) {}
  EventValue(EventBytes bytes) : value_(std::move(bytes)) {}
  EventValue(EventOther other) : value_(std::move(other)) {}

  EventValue(const EventValue&) = default;
  EventValue(EventValue&&) noexcept = default;
  EventValue& operator=(const EventValue&) = default;
  EventValue& operator=(EventValue&&) noexcept = default;
  /// Needs no more stack for nested collections, however deep, unless memory has run out.
  ~EventValue() {
    if (isCollection()) flatten();
  }

  /// Stands for a value of any other type; only the type's name is kept.
  template <class T>
  static EventValue other(const T&) {
    return other(typeid(T));
  }
  static EventValue other(const std::type_info& type);

  const Variant& variant() const { return value_; }

  friend ORRELO_EXPORT bool operator==(const EventValue& a, const EventValue& b);

 private:
  bool isCollection() const {
    return std::holds_alternative<EventDictionary>(value_) || std::holds_alternative<EventArray>(value_) ||
           std::holds_alternative<EventSet>(value_);
  }
  /// Destroys all collections in this collection, or some of them if memory has run out.
  void flatten() noexcept;
  /// Moves the collections in this collection to `out`.
  void takeCollections(EventArray& out);

  static double toDouble(float value);
  static double toDouble(double value) { return value; }
  static double toDouble(long double value) { return static_cast<double>(value); }

  Variant value_;
};

/// The values of one event, by key.
using EventValues = EventDictionary;

}  // namespace orrelo
