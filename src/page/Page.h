#pragma once

#include "base/Json.h"
#include "base/JsonWriter.h"

#include <orrelo/EventValue.h>
#include <orrelo/Url.h>

#include <string>
#include <string_view>
#include <variant>

namespace orrelo {

/// A destination that the kit can navigate to. Compared by case and payload.
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

  /// Makes a fixed page from its name; `unknown` for any other text. Never a campaign or a deep link.
  static Page fromDestination(std::string_view destination);
  /// Reads a push notification's payload; `unknown` if it contains no valid destination.
  static Page fromUserInfo(const EventDictionary& userInfo);
  /// Reads the JSON object of a page-entry block; `unknown` if it contains no valid destination.
  static Page fromPageEntry(const JsonObject& component);

  /// Reads and writes the stored form, an object whose only key is the name of the case. `decode` throws a
  /// DecodingError.
  static Page decode(const JsonValue& json);
  void encode(JsonWriter& json) const;

  const Variant& variant() const { return value_; }
  /// The name of the case, such as "home" or "deepLink".
  std::string_view caseName() const;

  friend bool operator==(const Page&, const Page&) = default;

 private:
  Variant value_ = Fixed::unknown;
};

}  // namespace orrelo
