#include "modular/content/PageEntryComponent.h"

#include "modular/content/PageEntryView.h"

namespace orrelo {

PageEntryComponent::PageEntryComponent(const JsonObject& json)
    : title(json.text("title")),
      label(json.text("label")),
      iconUrl(json.text("icon_url")),
      page(Page::fromPageEntry(json)) {}

void PageEntryComponent::render(StackView& stackView) {
  const auto view = std::make_shared<PageEntryView>(title, label, page);
  view->delegate = weak_from_this();
  if (!iconUrl.empty()) view->iconImageView->load(iconUrl);
  stackView.addArrangedSubview(view);
}

}  // namespace orrelo
