#pragma once

#include "base/Color.h"
#include "base/Json.h"
#include "base/JsonWriter.h"
#include "page/Entry.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orrelo {

/// The exchange of points at an external service.
class ExternalPointPlugin {
 public:
  struct Enabled {
    std::string entryViewMessage;
    std::string exchangeText;
    std::string landingUrl;
    friend bool operator==(const Enabled&, const Enabled&) = default;
  };

  /// A disabled plugin.
  ExternalPointPlugin() = default;
  explicit ExternalPointPlugin(Enabled enabled) : value_(std::move(enabled)) {}

  /// Null if disabled.
  const Enabled* enabled() const { return std::get_if<Enabled>(&value_); }

  static ExternalPointPlugin decode(const JsonObject& json);
  void encode(JsonWriter& json) const;

  friend bool operator==(const ExternalPointPlugin&, const ExternalPointPlugin&) = default;

 private:
  std::variant<std::monostate, Enabled> value_;
};

struct Plugin {
  bool pointSystem = false;
  ExternalPointPlugin externalPointPlugin;
  bool gifticon = false;

  friend bool operator==(const Plugin&, const Plugin&) = default;
};

/// The host's colours. "seconary" is spelled as in the stored form.
struct BrandTheme {
  Color primary;
  Color seconary;
  Color seconaryVariant;

  friend bool operator==(const BrandTheme&, const BrandTheme&) = default;
};

struct Config {
  /// The master switch: host events are dropped if it is off.
  bool sdkEnable = false;
  std::int64_t pollingIntervalMillis = 0;
  std::int64_t autoSwipeIntervalMillis = 0;
  std::string appStoreUrl;
  bool isPollingEnabled = false;
  Plugin plugin;
  BrandTheme brandTheme;
  /// Listed in the service's order.
  std::vector<Entry> entries;

  /// The configuration until the service's first reply: all features disabled, and a blue theme.
  static const Config& defaults();

  /// Reads and writes the stored form, keyed by the names of the fields. `decode` throws a DecodingError.
  static Config decode(std::string_view json);
  std::string encode() const;

  friend bool operator==(const Config&, const Config&) = default;
};

}  // namespace orrelo
