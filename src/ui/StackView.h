#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// Arranges views vertically.
class ORRELO_EXPORT StackView final : public View {
 public:
  struct Arranged {
    std::shared_ptr<View> view;
    /// The distance to both edges of the stack. If absent, the view has its own width and is centered.
    std::optional<double> inset;
    /// The spacing below the view.
    double spacingAfter = 0.0;

    friend bool operator==(const Arranged&, const Arranged&) = default;
  };

  std::string_view kind() const override { return "StackView"; }

  void addArrangedSubview(std::shared_ptr<View> view, std::optional<double> inset = 0.0);
  /// Sets the spacing below the last view and replaces an earlier value. Does nothing if there is no view
  /// yet.
  void setCustomSpacingAfterLast(double spacing);

  /// The views from top to bottom. They are added before a front draws the stack and are not changed later.
  std::vector<Arranged> arrangedSubviews;
};

}  // namespace orrelo
