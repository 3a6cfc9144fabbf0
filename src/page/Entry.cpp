#include "page/Entry.h"

#include "base/Error.h"
#include "base/Logger.h"

#include <orrelo/Url.h>

namespace orrelo {

Entry Entry::decode(const JsonValue& json) {
  const auto object = json.objectValue();
  const auto page = object.find("page");
  if (!page) throw makeError(DecodingError::keyNotFound, "No value associated with key \"page\".");
  return {object.text("pageId"), Page::decode(*page)};
}

void Entry::encode(JsonWriter& json) const {
  json.beginObject().field("pageId", pageId).key("page");
  page.encode(json);
  json.endObject();
}

EntryResponse EntryResponse::decode(const JsonValue& json) {
  const auto object = json.objectValue();
  return {object.text("id"), object.text("destination_type"), object.text("destination")};
}

Entry EntryResponse::toEntry() const {
  if (destinationType == "campaign") return {id, Page::Campaign{destination}};
  if (destinationType != "deeplink") return {id, Page::fromDestination(destinationType)};
  if (const auto url = Url::parse(destination)) return {id, Page::DeepLink{*url}};
  log(LogLevel::ERROR, [this] { return destination + " is an invalid paramter for the URL"; });
  return {id, Page::Fixed::unknown};
}

}  // namespace orrelo
