#pragma once

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orrelo {

/// Bytes of a setting.
using DefaultsData = std::vector<std::byte>;
/// The value of a setting.
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, DefaultsData>;

/// One suite of a persistent key-value store. Values are typed: a value of another type than requested counts
/// as missing.
///
/// Any thread. The first read loads the file; later reads come from memory. A write has reached the file when
/// the call returns. If the file rejects the write, the value still applies in this process and is written
/// together with the next successful write.
class ORRELO_EXPORT UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  virtual std::optional<DefaultsValue> value(std::string_view key) const = 0;
  virtual void set(std::string_view key, DefaultsValue value) = 0;
  virtual void remove(std::string_view key) = 0;
  /// Returns the text stored under `key`; if there is none, stores and returns `candidate`. Two processes
  /// that call it at the same time get the same text. While the file can be neither read nor written, the
  /// candidate applies in this process; once the file is accessible again, a text stored in it replaces the
  /// candidate. The default implementation reads and then sets; a store shared between processes must
  /// override it.
  virtual std::string textOrInsert(std::string_view key, std::string candidate);

  std::optional<bool> boolean(std::string_view key) const { return typed<bool>(key); }
  std::optional<std::int64_t> integer(std::string_view key) const { return typed<std::int64_t>(key); }
  std::optional<double> number(std::string_view key) const { return typed<double>(key); }
  std::optional<std::string> text(std::string_view key) const { return typed<std::string>(key); }
  std::optional<DefaultsData> data(std::string_view key) const { return typed<DefaultsData>(key); }

 private:
  template <class T>
  std::optional<T> typed(std::string_view key) const {
    auto found = value(key);
    if (!found || !std::holds_alternative<T>(*found)) return std::nullopt;
    return std::get<T>(*std::move(found));
  }
};

/// Opens suites. Requests for the same name return the same suite.
class ORRELO_EXPORT UserDefaultsFactory {
 public:
  virtual ~UserDefaultsFactory() = default;

  /// The unnamed suite.
  virtual std::shared_ptr<UserDefaults> standard() = 0;
  /// The suite of this name; null for the reserved names, the main bundle's identifier and "NSGlobalDomain".
  virtual std::shared_ptr<UserDefaults> suite(std::string_view name) = 0;
  /// Makes the suites' next reads see the writes of other processes. Called by `Orrelo::initialize`. A
  /// factory whose suites keep nothing in memory need not override it.
  virtual void refresh() {}
};

}  // namespace orrelo
