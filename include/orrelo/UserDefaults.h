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

using DefaultsData = std::vector<std::byte>;
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, DefaultsData>;

/// One suite of a persistent key-value store. Values are typed: one of another type than asked for counts as
/// missing.
///
/// Any thread. Reads come from memory after the first. A write is in the file when the call returns; if the
/// file refused it, it counts in this process, and goes along with the next write that the file takes.
class ORRELO_EXPORT UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  virtual std::optional<DefaultsValue> value(std::string_view key) const = 0;
  virtual void set(std::string_view key, DefaultsValue value) = 0;
  virtual void remove(std::string_view key) = 0;
  /// The text stored under `key`, else `candidate`, which is stored then. Two processes that ask at the same
  /// time get the same answer. While the file can be neither read nor written, the candidate counts in this
  /// process; as soon as the file can be read or written again, a text that it holds counts in its place. The
  /// default asks and then sets; a store that processes share must override it.
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

/// Opens suites. Two questions for one name are answered with the same suite.
class ORRELO_EXPORT UserDefaultsFactory {
 public:
  virtual ~UserDefaultsFactory() = default;

  /// The suite that has no name.
  virtual std::shared_ptr<UserDefaults> standard() = 0;
  /// Null for a name that no suite may have: the main bundle's identifier and "NSGlobalDomain".
  virtual std::shared_ptr<UserDefaults> suite(std::string_view name) = 0;
  /// The suites' next reads see what other processes have written since. Called by `Orrelo::initialize`; a
  /// factory whose suites keep nothing in memory has nothing to do.
  virtual void refresh() {}
};

}  // namespace orrelo
