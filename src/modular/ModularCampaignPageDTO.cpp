#include "modular/ModularCampaignPageDTO.h"

#include "base/JsonFields.h"
#include "base/PageOmissions.h"
#include "base/preconditionFailure.h"
#include "modular/ComponentKinds.h"
#include "modular/content/BlankComponent.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {
namespace {

using Component = std::shared_ptr<UIComponent>;

// A queue of elements.
template <class T>
class Queue {
 public:
  explicit Queue(std::vector<T> elements) : elements_(std::move(elements)) {}

  bool isEmpty() const { return taken_ == elements_.size(); }
  T take() { return std::move(elements_[taken_++]); }

 private:
  std::vector<T> elements_;
  std::size_t taken_ = 0;
};

std::map<std::string_view, Queue<Component>> decodeArrays(const JsonObject& json) {
  std::map<std::string_view, Queue<Component>> arrays;
  for (const auto& kind : componentKinds()) {
    try {
      auto components = optionalRecords(json, kind.arrayKey, kind.decode);
      if (components) arrays.emplace(kind.arrayKey, *std::move(components));
    } catch (const Error& error) {
      if (const auto array = json.find(kind.arrayKey)) explainLeftOut(*array, error);
      // The valid elements of the array are dropped too, since their positions in the order are ambiguous
      // now.
    }
  }
  return arrays;
}

Queue<std::int64_t> decodeBlanks(const JsonObject& json) {
  std::vector<std::int64_t> heights;
  const auto value = json.find("blank");
  if (value && !value->isNull()) {
    value->arrayValue().forEach([&](const JsonValue& element) {
      const auto height = element.asInteger();
      if (!height) throw makeError(DecodingError::typeMismatch, "\"blank\" holds more than integers.");
      heights.push_back(*height);
    });
  }
  return Queue(std::move(heights));
}

void explainMissingBlock(const JsonObject& json, const std::string& name) {
  if (name == "blank") return;
  explainOmission(json, "/page_config/layout/component_order", [&] {
    return "names \"" + name +
           "\", of which there is no block that this version can show: nothing stands in its place.";
  });
}

std::vector<Component> ordered(const JsonObject& json, const std::vector<std::string>& order) {
  auto blanks =
      decodeBlanks(json);  // first, since this may reject the page, while a wheel may stop the process
  auto arrays = decodeArrays(json);
  std::vector<Component> components;
  const auto appendBlank = [&] {
    if (!blanks.isEmpty()) components.push_back(std::make_shared<BlankComponent>(blanks.take()));
  };
  // The page starts with a blank, and another one follows each name, known or not, while blanks are left.
  appendBlank();
  for (const auto& name : order) {
    if (const auto array = arrays.find(name); array != arrays.end()) {
      if (array->second.isEmpty()) {
        preconditionFailure("\"component_order\" names more blocks than \"" + name + "\" holds");
      }
      components.push_back(array->second.take());
    } else {
      explainMissingBlock(json, name);
    }
    appendBlank();
  }
  for (const auto& [name, array] : arrays) {
    if (array.isEmpty()) continue;
    explainOmission(json, "/" + std::string(name), [] {
      return "has blocks that are left out, since \"component_order\" does not name them often enough.";
    });
  }
  return components;
}

}  // namespace

ModularCampaignPageDTO ModularCampaignPageDTO::decode(const JsonObject& json) {
  auto config = ModularCampaignConfig::decode(json.object("page_config"));
  auto components = ordered(json, config.layout.componentOrder);
  return {std::move(components), std::move(config)};
}

}  // namespace orrelo
