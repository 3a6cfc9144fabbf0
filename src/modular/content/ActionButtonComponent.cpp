#include "modular/content/ActionButtonComponent.h"

#include "modular/content/ActionButtonView.h"

namespace orrelo {

ActionButtonComponent::ActionButtonComponent(const JsonObject& json)
    : text(json.text("button_text")),
      statusMessage(json.text("status_message")),
      isEnabled(json.boolean("button_enable")),
      actionUrl(json.text("button_url")),
      color(json.text("button_color")) {}

void ActionButtonComponent::render(StackView& stackView) {
  const ActionButtonView::Content content{text, statusMessage, isEnabled, actionUrl, Color::fromHex(color)};
  const auto view = std::make_shared<ActionButtonView>(content);
  view->delegate = weak_from_this();
  stackView.addArrangedSubview(view, 0.0);
}

}  // namespace orrelo
