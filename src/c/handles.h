#pragma once

#include "c/CallStatus.h"

#include <orrelo/Export.h>
#include <orrelo/IOrrelo.h>
#include <orrelo/Platform.h>
#include <orrelo/orrelo_c.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// What the opaque records of the C interface hold. A value and a dictionary are the C++ objects themselves,
// so that the elements of a collection are handles too.
struct orrelo_host_application {
  orrelo::HostApplication host;
};

struct orrelo_config {
  orrelo::ORLConfig config;
};

struct orrelo_user {
  std::string id;
  orrelo::ORLMarketingStatus marketingStatus = orrelo::ORLMarketingStatus::unknown;
  orrelo::EventValues properties;
};

struct orrelo_view_controller {
  std::shared_ptr<orrelo::ViewController> screen;
};

namespace orrelo::c {

inline EventValue* in(orrelo_value* handle) {
  return reinterpret_cast<EventValue*>(handle);
}
inline const EventValue* in(const orrelo_value* handle) {
  return reinterpret_cast<const EventValue*>(handle);
}
inline EventDictionary* in(orrelo_values* handle) {
  return reinterpret_cast<EventDictionary*>(handle);
}
inline const EventDictionary* in(const orrelo_values* handle) {
  return reinterpret_cast<const EventDictionary*>(handle);
}
inline orrelo_value* out(EventValue* value) {
  return reinterpret_cast<orrelo_value*>(value);
}
inline const orrelo_value* out(const EventValue* value) {
  return reinterpret_cast<const orrelo_value*>(value);
}
inline orrelo_values* out(EventDictionary* values) {
  return reinterpret_cast<orrelo_values*>(values);
}
inline const orrelo_values* out(const EventDictionary* values) {
  return reinterpret_cast<const orrelo_values*>(values);
}

/// Throws a CallFailure if a collection that contained this value would be nested too deeply.
void requireRoom(const EventValue& element);

/// The screen of a handle; null for NULL.
inline std::shared_ptr<ViewController> screenOf(const orrelo_view_controller* handle) {
  return handle == nullptr ? nullptr : handle->screen;
}

/// A duration that neither is negative nor overflows a clock; otherwise a CallFailure.
ORRELO_EXPORT std::chrono::milliseconds durationOf(std::int64_t milliseconds);

/// The value with this raw value, or a CallFailure that names the argument.
template <class Enumeration>
Enumeration caseOf(std::optional<Enumeration> found, std::string_view name) {
  if (!found) throw CallFailure{ORRELO_INVALID_ARGUMENT, std::string(name) + " is out of range"};
  return *found;
}

/// Throws a CallFailure with ORRELO_NOT_INITIALIZED before `orrelo_initialize`.
void requireInitialized();

}  // namespace orrelo::c
