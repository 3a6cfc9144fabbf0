#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

namespace orrelo {

/// An empty view of a fixed height.
class ORRELO_EXPORT SpacerView final : public View {
 public:
  explicit SpacerView(double points) : height(points) {}

  std::string_view kind() const override { return "SpacerView"; }

  const double height;
};

}  // namespace orrelo
