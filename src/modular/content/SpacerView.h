#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

namespace orrelo {

/// An empty view of a fixed height.
class ORRELO_EXPORT SpacerView final : public View {
 public:
  explicit SpacerView(double points) : height(points) {}

  static constexpr std::string_view kindName = "SpacerView";
  std::string_view kind() const override { return kindName; }

  const double height;
};

}  // namespace orrelo
