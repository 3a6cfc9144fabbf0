#pragma once

#include "image/ImageView.h"
#include "modular/UIComponent.h"
#include "viewkit/joinedLabel.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <utility>

namespace orrelo {

/// A rounded rectangle that contains an icon, two lines of text and an arrow, from the leading to the
/// trailing edge.
class ORRELO_EXPORT PageEntryView final : public View {
 public:
  static constexpr auto tapAsset = "orl_ic_chevron_right";

  PageEntryView(std::string titleLine, std::string labelLine, Page destination)
      : title(std::move(titleLine)), label(std::move(labelLine)), page(std::move(destination)) {}

  static constexpr std::string_view kindName = "PageEntryView";
  std::string_view kind() const override { return kindName; }
  std::string accessibilityLabel() const { return joinedLabel(title, label); }

  /// Called for a tap anywhere on the view.
  void didAction() const {
    if (const auto component = delegate.lock()) component->send({Action::Routing{page}});
  }

  const std::string title;
  const std::string label;
  const Page page;
  /// Empty if there is no icon.
  const std::shared_ptr<ImageView> iconImageView = std::make_shared<ImageView>();
  std::weak_ptr<const UIComponent> delegate;
};

}  // namespace orrelo
