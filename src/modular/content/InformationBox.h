#pragma once

#include "base/Color.h"
#include "image/ImageView.h"
#include "modular/content/BoxedInformationListComponent.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// A text with a small picture at the leading side, another text at the trailing one.
class ORRELO_EXPORT InformationBox final : public View {
 public:
  static constexpr double height = 84.0;
  static constexpr EdgeInsets margins{0.0, 24.0, 0.0, 24.0};
  static constexpr Color backgroundColor{0.98, 0.98, 0.98, 1.0};
  static constexpr double cornerRadius = 8.0;
  /// Between the left text and the picture.
  static constexpr double leftSpacing = 10.0;
  static constexpr double imageHeight = 24.0;

  static std::shared_ptr<InformationBox> create(const BoxedInformation& item);

  std::string_view kind() const override { return "InformationBox"; }

  const std::string leftText;
  const std::string rightText;
  const Color rightTextColor;
  const std::shared_ptr<ImageView> leftImageView = std::make_shared<ImageView>();
  /// By the image's proportions; absent until it is there.
  Followed<std::optional<double>> imageWidth;

 private:
  explicit InformationBox(const BoxedInformation& item);

  void imageDidLoad(const Image& image);
};

}  // namespace orrelo
