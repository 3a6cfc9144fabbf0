#pragma once

#include "base/Json.h"
#include "base/JsonWriter.h"

#include <orrelo/EventValue.h>
#include <orrelo/Url.h>

#include <string>
#include <string_view>
#include <variant>

namespace orrelo {

/// A place that the kit can take the user to. Compared by case and payload.
class Page {
 public:
  struct DeepLink {
    Url url;
    friend bool operator==(const DeepLink&, const DeepLink&) = default;
  };
  struct Campaign {
    std::string id;
    friend bool operator==(const Campaign&, const Campaign&) = default;
  };
  enum class Fixed { home, referral, externalPointExchange, gifticon, pointRedemptionHistory, unknown };
  using Variant = std::variant<Fixed, DeepLink, Campaign>;

  Page() = default;
  Page(Fixed page) : value_(page) {}
  Page(DeepLink page) : value_(std::move(page)) {}
  Page(Campaign page) : value_(std::move(page)) {}

  /// From a destination text alone: neither campaigns nor deep links; `unknown` for any other text.
  static Page fromDestination(std::string_view destination);
  /// From a push notification's payload; `unknown` where nothing in it can be read.
  static Page fromUserInfo(const EventDictionary& userInfo);
  /// From the JSON object of a page-entry block; `unknown` where nothing in it can be read.
  static Page fromPageEntry(const JsonObject& component);

  /// The stored form: an object with the case's name as its one key. Throws a DecodingError.
  static Page decode(const JsonValue& json);
  void encode(JsonWriter& json) const;

  const Variant& variant() const { return value_; }
  /// "home", "deepLink": the case's name.
  std::string_view caseName() const;

  friend bool operator==(const Page&, const Page&) = default;

 private:
  Variant value_ = Fixed::unknown;
};

/// A row of the service's table of pages.
struct Entry {
  std::string pageId;
  Page page;

  static Entry decode(const JsonValue& json);
  void encode(JsonWriter& json) const;

  friend bool operator==(const Entry&, const Entry&) = default;
};

/// A row as the service sends it.
struct EntryResponse {
  std::string id;
  std::string destinationType;
  /// The URL or the campaign's id; the other types ignore it.
  std::string destination;

  static EntryResponse decode(const JsonValue& json);
  /// Never fails: what leads nowhere is `unknown`, and the row stays.
  Entry toEntry() const;
};

}  // namespace orrelo
