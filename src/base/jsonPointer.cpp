#include "base/jsonPointer.h"

#include <bit>
#include <cstddef>
#include <optional>
#include <simdjson.h>

namespace orrelo {
namespace {

namespace dom = simdjson::dom;

// The parser's handles name a position in the document, in which a value's parts lie behind it.
struct Child {
  std::string key;
  dom::element element;
};

std::size_t positionOf(const dom::element& element) {
  return std::bit_cast<JsonHandle>(element).index;
}

std::string escaped(std::string_view key) {
  std::string text;
  for (const char c : key) {
    if (c == '~') {
      text += "~0";
    } else if (c == '/') {
      text += "~1";
    } else {
      text += c;
    }
  }
  return text;
}

// The child that is at the position or holds it: the last one that does not lie behind it.
std::optional<Child> childWith(std::size_t position, const dom::element& parent) {
  std::optional<Child> found;
  dom::object object;
  dom::array array;
  if (parent.get(object) == simdjson::SUCCESS) {
    for (const auto field : object) {
      if (positionOf(field.value) > position) break;
      found = Child{escaped(field.key), field.value};
    }
  } else if (parent.get(array) == simdjson::SUCCESS) {
    std::size_t index = 0;
    for (const auto element : array) {
      if (positionOf(element) > position) break;
      found = Child{std::to_string(index++), element};
    }
  }
  return found;
}

std::string pointerTo(JsonHandle handle) {
  std::string pointer;
  auto at = static_cast<const dom::document*>(handle.document)->root();
  while (positionOf(at) < handle.index) {
    const auto child = childWith(handle.index, at);
    if (!child) break;
    pointer.append("/").append(child->key);
    at = child->element;
  }
  return pointer;
}

}  // namespace

std::string jsonPointer(const JsonValue& value) {
  return pointerTo(std::bit_cast<JsonHandle>(value));
}

std::string jsonPointer(const JsonObject& object) {
  return pointerTo(std::bit_cast<JsonHandle>(object));
}

}  // namespace orrelo
