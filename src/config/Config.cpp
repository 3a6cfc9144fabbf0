#include "config/Config.h"

#include "base/Error.h"

namespace orrelo {
namespace {

BrandTheme decodeTheme(const JsonObject& json) {
  return {Color::fromHex(json.text("primary")), Color::fromHex(json.text("seconary")),
          Color::fromHex(json.text("seconaryVariant"))};
}

Plugin decodePlugin(const JsonObject& json) {
  return {json.boolean("pointSystem"), ExternalPointPlugin::decode(json.object("externalPointPlugin")),
          json.boolean("gifticon")};
}

}  // namespace

ExternalPointPlugin ExternalPointPlugin::decode(const JsonObject& json) {
  const auto enabled = json.find("enabled");
  const auto disabled = json.find("disabled");
  if (enabled.has_value() == disabled.has_value()) {
    throw makeError(DecodingError::typeMismatch, "Invalid number of keys found, expected one.");
  }
  if (disabled) {
    disabled->objectValue();
    return {};
  }
  const auto texts = enabled->objectValue();
  return ExternalPointPlugin(
      Enabled{texts.text("entryViewMessage"), texts.text("exchangeText"), texts.text("landingUrl")});
}

void ExternalPointPlugin::encode(JsonWriter& json) const {
  json.beginObject();
  if (const auto* const texts = enabled()) {
    json.key("enabled").beginObject();
    json.field("entryViewMessage", texts->entryViewMessage);
    json.field("exchangeText", texts->exchangeText);
    json.field("landingUrl", texts->landingUrl);
    json.endObject();
  } else {
    json.key("disabled").beginObject().endObject();
  }
  json.endObject();
}

const Config& Config::defaults() {
  static const auto* const config = new Config{
      .sdkEnable = false,
      .pollingIntervalMillis = 75000,
      .autoSwipeIntervalMillis = 4000,
      .appStoreUrl = "",
      .isPollingEnabled = false,
      .plugin = {},
      .brandTheme = {{0.071, 0.565, 1.0, 1.0}, {0.071, 0.565, 1.0, 0.6}, {0.0, 0.463, 0.87, 1.0}},
      .entries = {},
  };
  return *config;
}

Config Config::decode(std::string_view json) {
  JsonParser parser;
  const auto object = parser.parse(json).objectValue();
  Config config{
      .sdkEnable = object.boolean("sdkEnable"),
      .pollingIntervalMillis = object.integer("pollingIntervalMillis"),
      .autoSwipeIntervalMillis = object.integer("autoSwipeIntervalMillis"),
      .appStoreUrl = object.text("appStoreUrl"),
      .isPollingEnabled = object.boolean("isPollingEnabled"),
      .plugin = decodePlugin(object.object("plugin")),
      .brandTheme = decodeTheme(object.object("brandTheme")),
      .entries = {},
  };
  object.array("entries").forEach(
      [&](const JsonValue& row) { config.entries.push_back(Entry::decode(row)); });
  return config;
}

std::string Config::encode() const {
  JsonWriter json;
  json.beginObject();
  json.key("sdkEnable").boolean(sdkEnable);
  json.key("pollingIntervalMillis").integer(pollingIntervalMillis);
  json.key("autoSwipeIntervalMillis").integer(autoSwipeIntervalMillis);
  json.field("appStoreUrl", appStoreUrl);
  json.key("isPollingEnabled").boolean(isPollingEnabled);
  json.key("plugin").beginObject();
  json.key("pointSystem").boolean(plugin.pointSystem);
  json.key("externalPointPlugin");
  plugin.externalPointPlugin.encode(json);
  json.key("gifticon").boolean(plugin.gifticon);
  json.endObject();
  json.key("brandTheme").beginObject();
  json.field("primary", brandTheme.primary.hexText());
  json.field("seconary", brandTheme.seconary.hexText());
  json.field("seconaryVariant", brandTheme.seconaryVariant.hexText());
  json.endObject();
  json.key("entries").beginArray();
  for (const auto& entry : entries) entry.encode(json);
  json.endArray();
  json.endObject();
  return std::move(json).result();
}

}  // namespace orrelo
