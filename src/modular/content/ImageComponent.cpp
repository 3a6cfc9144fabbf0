#include "modular/content/ImageComponent.h"

#include "base/Error.h"

namespace orrelo {
namespace {

ImageComponent::Style styleOf(const std::string& text) {
  if (text == "fit") return ImageComponent::Style::fit;
  if (text == "none") return ImageComponent::Style::none;
  throw makeError(DecodingError::dataCorrupted, "\"" + text + "\" is no style of an image.");
}

}  // namespace

ImageComponent::ImageComponent(const JsonObject& json)
    : url(json.text("url")), style(styleOf(json.text("style"))) {}

void ImageComponent::render(StackView& stackView) {
  using ContentMode = AutoLayoutImageView::ContentMode;
  const auto view = std::make_shared<AutoLayoutImageView>();
  view->contentMode = style == Style::fit ? ContentMode::scaleAspectFit : ContentMode::center;
  stackView.addArrangedSubview(view, 0.0);
  view->load(url);
}

}  // namespace orrelo
