#pragma once

#include "config/Config.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

struct BrandThemeResponse {
  std::string primary;
  std::string seconary;
  std::string seconaryVariant;
};

struct ExternalPointPluginDTO {
  bool isEnabled = false;
  std::string entryViewMessage;
  std::string exchangeText;
  std::string landingUrl;
};

struct PluginResponse {
  bool point = false;
  ExternalPointPluginDTO externalPointPlugin;
  bool gifticon = false;
};

/// The reply of "/config".
struct FetchConfigResponse {
  bool sdkEnable = false;
  std::int64_t pollingIntervalMillis = 0;
  std::int64_t autoSwipeIntervalMillis = 0;
  std::optional<std::string> appStoreUrl;
  std::string pushServiceSetting;
  BrandThemeResponse brandTheme;
  PluginResponse plugins;
  std::vector<EntryResponse> entries;

  /// Throws a DecodingError; all fields except `appStoreUrl` are required.
  static FetchConfigResponse decode(std::string_view json);
  Config toConfig() const;
};

}  // namespace orrelo
