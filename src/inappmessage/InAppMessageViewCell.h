#pragma once

#include "image/ImageView.h"
#include "inappmessage/InAppMessage.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <string>

namespace orrelo {

/// One page of the carousel: a square picture that can be pressed.
class ORRELO_EXPORT InAppMessageViewCell final : public View {
 public:
  /// How much narrower and lower than the cell its picture is.
  static constexpr double inset = 30.0;
  static constexpr auto placeholderAsset = "orl_ic_picture";

  /// `position` counts from 0 among `count` pages.
  InAppMessageViewCell(const InAppMessage& message, std::size_t position, std::size_t count);

  static constexpr std::string_view kindName = "InAppMessageViewCell";
  std::string_view kind() const override { return kindName; }

  const std::string imageUrl;
  const std::string accessibilityLabel;
  const std::shared_ptr<ImageView> imageView = std::make_shared<ImageView>();

  /// Loads the picture when the page comes near the visible one, and drops it when the page leaves.
  void setNear(bool isNear);

 private:
  bool isNear_ = false;
};

}  // namespace orrelo
