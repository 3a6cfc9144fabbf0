#pragma once

#include "base/Color.h"
#include "ui/Animation.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <string>
#include <utility>

namespace orrelo {

/// A short message in the middle of a screen that fades out by itself.
class ORRELO_EXPORT ToastView final : public View {
 public:
  static constexpr auto identifier = "OrreloToast";
  /// The animation of the opacity.
  static constexpr Animation fade{.from = 1.0,
                                  .to = 0.0,
                                  .duration = std::chrono::seconds(2),
                                  .delay = std::chrono::seconds(1),
                                  .curve = Animation::Curve::easeOut};

  ToastView(std::string text, const Color& color)
      : message(std::move(text)), backgroundColor{color.red, color.green, color.blue, 0.87} {
    accessibilityIdentifier = identifier;
  }

  std::string_view kind() const override { return "ToastView"; }

  const std::string message;
  const Color backgroundColor;
};

}  // namespace orrelo
