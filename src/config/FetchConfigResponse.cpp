#include "config/FetchConfigResponse.h"

namespace orrelo {
namespace {

BrandThemeResponse decodeThemeResponse(const JsonObject& json) {
  return {json.text("main"), json.text("sub1"), json.text("sub2")};
}

PluginResponse decodePlugins(const JsonObject& json) {
  const auto point = json.boolean("pointsystem");
  const auto external = json.object("naverpay");
  return {point,
          {external.boolean("is_enabled"), external.text("entry_view_message"),
           external.text("exchange_text"), external.text("landing_url")},
          json.boolean("gifticon")};
}

}  // namespace

FetchConfigResponse FetchConfigResponse::decode(std::string_view json) {
  JsonParser parser;
  const auto object = parser.parse(json).objectValue();
  FetchConfigResponse response{
      .sdkEnable = object.boolean("sdk_enable"),
      .pollingIntervalMillis = object.integer("notification_polling_interval"),
      .autoSwipeIntervalMillis = object.integer("auto_swipe_interval"),
      .appStoreUrl = object.optionalText("app_install_link"),
      .pushServiceSetting = object.text("push_service_setting"),
      .brandTheme = decodeThemeResponse(object.object("color")),
      .plugins = decodePlugins(object.object("plugins")),
      .entries = {},
  };
  object.array("entries").forEach(
      [&](const JsonValue& row) { response.entries.push_back(EntryResponse::decode(row)); });
  return response;
}

Config FetchConfigResponse::toConfig() const {
  Config config{
      .sdkEnable = sdkEnable,
      .pollingIntervalMillis = pollingIntervalMillis,
      .autoSwipeIntervalMillis = autoSwipeIntervalMillis,
      .appStoreUrl = appStoreUrl.value_or(""),
      .isPollingEnabled = pushServiceSetting == "Polling",
      .plugin = {.pointSystem = plugins.point, .externalPointPlugin = {}, .gifticon = plugins.gifticon},
      .brandTheme = {Color::fromHex(brandTheme.primary), Color::fromHex(brandTheme.seconary),
                     Color::fromHex(brandTheme.seconaryVariant)},
      .entries = {},
  };
  const auto& external = plugins.externalPointPlugin;
  if (external.isEnabled) {
    config.plugin.externalPointPlugin = ExternalPointPlugin(
        ExternalPointPlugin::Enabled{external.entryViewMessage, external.exchangeText, external.landingUrl});
  }
  for (const auto& entry : entries) config.entries.push_back(entry.toEntry());
  return config;
}

}  // namespace orrelo
