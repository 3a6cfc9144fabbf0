#pragma once

#include "base/Color.h"
#include "base/Json.h"
#include "base/JsonWriter.h"
#include "page/Page.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orrelo {

/// The exchange of points at an outside service.
class ExternalPointPlugin {
 public:
  struct Enabled {
    std::string entryViewMessage;
    std::string exchangeText;
    std::string landingUrl;
    friend bool operator==(const Enabled&, const Enabled&) = default;
  };

  /// Disabled.
  ExternalPointPlugin() = default;
  explicit ExternalPointPlugin(Enabled enabled) : value_(std::move(enabled)) {}

  /// Null when disabled.
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

/// The host's colours. "seconary" is the stored form's spelling.
struct BrandTheme {
  Color primary;
  Color seconary;
  Color seconaryVariant;

  friend bool operator==(const BrandTheme&, const BrandTheme&) = default;
};

struct Config {
  /// The master switch: when it is off, host events are dropped.
  bool sdkEnable = false;
  std::int64_t pollingIntervalMillis = 0;
  std::int64_t autoSwipeIntervalMillis = 0;
  std::string appStoreUrl;
  bool isPollingEnabled = false;
  Plugin plugin;
  BrandTheme brandTheme;
  /// In the order of the service.
  std::vector<Entry> entries;

  /// What holds before the service has ever answered: everything off, in blue.
  static const Config& defaults();

  /// The stored form, whose keys are the fields' names. `decode` throws a DecodingError.
  static Config decode(std::string_view json);
  std::string encode() const;

  friend bool operator==(const Config&, const Config&) = default;
};

}  // namespace orrelo
