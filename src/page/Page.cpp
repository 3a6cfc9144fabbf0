#include "page/Page.h"

#include "base/Error.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace orrelo {
namespace {

using Fixed = Page::Fixed;

constexpr std::array<std::pair<std::string_view, Fixed>, 6> fixedPages{{
    {"home", Fixed::home},
    {"referral", Fixed::referral},
    {"externalPointExchange", Fixed::externalPointExchange},
    {"gifticon", Fixed::gifticon},
    {"pointRedemptionHistory", Fixed::pointRedemptionHistory},
    {"unknown", Fixed::unknown},
}};

// The text at `key`; nullopt if it is absent, empty or not a text.
std::optional<std::string> textAt(const EventDictionary& userInfo, std::string_view key) {
  const auto found = userInfo.find(key);
  if (found == userInfo.end()) return std::nullopt;
  const auto* const text = std::get_if<std::string>(&found->second.variant());
  return text != nullptr && !text->empty() ? std::optional(*text) : std::nullopt;
}

std::optional<std::string_view> textAt(const JsonObject& object, std::string_view key) {
  const auto value = object.find(key);
  return value ? value->asText() : std::nullopt;
}

}  // namespace

Page Page::fromDestination(std::string_view destination) {
  if (destination == "campaignList") return Fixed::home;  // deliberate: the list is on the home screen
  for (const auto& [name, page] : fixedPages) {
    if (destination == name) return page;
  }
  return Fixed::unknown;
}

std::string_view Page::caseName() const {
  if (std::holds_alternative<DeepLink>(value_)) return "deepLink";
  if (std::holds_alternative<Campaign>(value_)) return "campaign";
  const auto* const found = std::find_if(fixedPages.begin(), fixedPages.end(), [this](const auto& row) {
    return row.second == std::get<Fixed>(value_);
  });
  return found->first;
}

Page Page::fromUserInfo(const EventDictionary& userInfo) {
  if (const auto link = textAt(userInfo, "deeplink")) {
    if (const auto url = Url::parse(*link)) return DeepLink{*url};
  }
  if (const auto id = textAt(userInfo, "campaignId")) return Campaign{*id};
  if (const auto destination = textAt(userInfo, "destination")) return fromDestination(*destination);
  return Fixed::unknown;
}

Page Page::fromPageEntry(const JsonObject& component) {
  if (const auto link = textAt(component, "deeplink")) {
    if (const auto url = Url::parse(*link)) return DeepLink{*url};
  }
  // Unlike in a notification, an empty campaign id is accepted here.
  if (const auto id = textAt(component, "campaign_id")) return Campaign{std::string(*id)};
  if (const auto destination = textAt(component, "destination")) return fromDestination(*destination);
  return Fixed::unknown;
}

Page Page::decode(const JsonValue& json) {
  const auto object = json.objectValue();
  std::optional<std::pair<std::string_view, JsonValue>> only;
  bool hasOthers = false;
  object.forEach([&](std::string_view key, JsonValue value) {
    const bool isFixed = std::any_of(fixedPages.begin(), fixedPages.end(),
                                     [key](const auto& each) { return each.first == key; });
    if (!isFixed && key != "deepLink" && key != "campaign") return;
    if (!only) {
      only.emplace(key, value);
    } else if (key != only->first) {  // the first of duplicate keys is used
      hasOthers = true;
    }
  });
  if (!only || hasOthers) {
    throw makeError(DecodingError::typeMismatch, "Invalid number of keys found, expected one.");
  }
  const auto payload = only->second.objectValue();
  if (only->first == "campaign") return Campaign{payload.text("id")};
  if (only->first != "deepLink") return fromDestination(only->first);
  const auto url = Url::parse(payload.text("url"));
  if (!url) throw makeError(DecodingError::dataCorrupted, "Invalid URL string.");
  return DeepLink{*url};
}

void Page::encode(JsonWriter& json) const {
  json.beginObject();
  if (const auto* const link = std::get_if<DeepLink>(&value_)) {
    json.key("deepLink").beginObject().field("url", link->url.text()).endObject();
  } else if (const auto* const campaign = std::get_if<Campaign>(&value_)) {
    json.key("campaign").beginObject().field("id", campaign->id).endObject();
  } else {
    for (const auto& [name, page] : fixedPages) {
      if (page == std::get<Fixed>(value_)) json.key(name).beginObject().endObject();
    }
  }
  json.endObject();
}

}  // namespace orrelo
