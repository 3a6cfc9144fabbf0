#include "modular/content/BoxedInformationListComponent.h"

#include "modular/content/BoxedInformationListView.h"

namespace orrelo {
namespace {

std::vector<BoxedInformation> itemsOf(const JsonArray& array) {
  std::vector<BoxedInformation> items;
  items.reserve(array.size());
  array.forEach(
      [&](const JsonValue& item) { items.push_back(BoxedInformation::decode(item.objectValue())); });
  return items;
}

}  // namespace

BoxedInformation BoxedInformation::decode(const JsonObject& json) {
  return {json.text("left_text"), json.text("image_url"), json.text("right_text"),
          Color::fromHex(json.text("color"))};
}

BoxedInformationListComponent::BoxedInformationListComponent(const JsonObject& json)
    : title(json.text("title")), items(itemsOf(json.array("items"))) {}

void BoxedInformationListComponent::render(StackView& stackView) {
  stackView.addArrangedSubview(std::make_shared<BoxedInformationListView>(title, items));
}

}  // namespace orrelo
