#pragma once

#include "base/Color.h"
#include "image/ImageView.h"
#include "modular/content/BoxedInformationListComponent.h"
#include "viewkit/joinedLabel.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// A box with a text and a small image at the leading edge and another text at the trailing edge.
class ORRELO_EXPORT InformationBox final : public View {
 public:
  /// In points; the image's width follows from it.
  static constexpr double imageHeight = 24.0;

  static std::shared_ptr<InformationBox> create(const BoxedInformation& item);

  std::string_view kind() const override { return "InformationBox"; }
  std::string accessibilityLabel() const { return joinedLabel(leftText, rightText); }

  const std::string leftText;
  const std::string rightText;
  const Color rightTextColor;
  const std::shared_ptr<ImageView> leftImageView = std::make_shared<ImageView>();
  /// The width that keeps the image's proportions; absent until the image is loaded.
  Followed<std::optional<double>> imageWidth;

 private:
  explicit InformationBox(const BoxedInformation& item);

  void imageDidLoad(const Image& image);
};

}  // namespace orrelo
