#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// Views one below the other.
class ORRELO_EXPORT StackView final : public View {
 public:
  struct Arranged {
    std::shared_ptr<View> view;
    /// From either edge of the stack. Absent where the view has its own width, and stands in the middle.
    std::optional<double> inset;
    /// Between the view and the next one.
    double spacingAfter = 0.0;

    friend bool operator==(const Arranged&, const Arranged&) = default;
  };

  std::string_view kind() const override { return "StackView"; }

  void addArrangedSubview(std::shared_ptr<View> view, std::optional<double> inset = 0.0);
  /// After the last view, in place of what was set there before. Nothing where there is no view yet.
  void setCustomSpacingAfterLast(double spacing);

  /// From top to bottom. They stand before a front draws the stack, and stay.
  std::vector<Arranged> arrangedSubviews;
};

}  // namespace orrelo
