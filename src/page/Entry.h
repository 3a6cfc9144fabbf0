#pragma once

#include "base/Json.h"
#include "base/JsonWriter.h"
#include "page/Page.h"

#include <string>

namespace orrelo {

/// An entry of the service's table of pages.
struct Entry {
  std::string pageId;
  Page page;

  static Entry decode(const JsonValue& json);
  void encode(JsonWriter& json) const;

  friend bool operator==(const Entry&, const Entry&) = default;
};

/// An entry as the service sends it.
struct EntryResponse {
  std::string id;
  std::string destinationType;
  /// The URL or the campaign's id; unused for other types.
  std::string destination;

  static EntryResponse decode(const JsonValue& json);
  /// Never fails: an invalid destination becomes `unknown`, and the entry is kept.
  Entry toEntry() const;
};

}  // namespace orrelo
