#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <string>
#include <utility>

namespace orrelo {

/// Two titles and a text, aligned to the leading edge.
class ORRELO_EXPORT InformationView final : public View {
 public:
  InformationView(std::string first, std::string second, std::string guide)
      : firstTitle(std::move(first)), secondTitle(std::move(second)), guideMessage(std::move(guide)) {}

  static constexpr std::string_view kindName = "InformationView";
  std::string_view kind() const override { return kindName; }

  const std::string firstTitle;
  const std::string secondTitle;
  /// May have any number of lines.
  const std::string guideMessage;
};

}  // namespace orrelo
