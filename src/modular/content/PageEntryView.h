#pragma once

#include "base/Color.h"
#include "image/ImageView.h"
#include "modular/UIComponent.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// From the leading to the trailing side of a rounded ground: an icon, two lines, and an arrow.
class ORRELO_EXPORT PageEntryView final : public View {
 public:
  static constexpr auto tapAsset = "orl_ic_chevron_right";
  static constexpr Color backgroundColor{0.945, 0.949, 0.953, 1.0};
  static constexpr double cornerRadius = 8.0;
  /// Of the ground, from either edge of the view.
  static constexpr double inset = 24.0;
  /// Within the ground, before the icon and behind the arrow.
  static constexpr double margin = 20.0;
  /// Between the icon and the lines.
  static constexpr double gap = 10.0;
  /// Between the two lines.
  static constexpr double lineSpacing = 4.0;

  PageEntryView(std::string titleLine, std::string labelLine, Page destination)
      : title(std::move(titleLine)), label(std::move(labelLine)), page(std::move(destination)) {}

  static constexpr std::string_view kindName = "PageEntryView";
  std::string_view kind() const override { return kindName; }

  /// A tap anywhere on the view.
  void didAction() const {
    if (const auto component = delegate.lock()) component->send({Action::Routing{page}});
  }

  const std::string title;
  const std::string label;
  const Page page;
  /// Empty where there is no icon.
  const std::shared_ptr<ImageView> iconImageView = std::make_shared<ImageView>();
  std::weak_ptr<const UIComponent> delegate;
};

}  // namespace orrelo
