#pragma once

#include "viewkit/InformationView.h"
#include "viewkit/TooltipView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// As InformationView, with a line to tap in place of the guide. It lies above the blocks around it, so that
/// none of them covers its tooltip.
class ORRELO_EXPORT TooltipInformationView final : public View {
 public:
  /// Stands before the line; without the picture the line is plain.
  static constexpr auto tooltipAsset = "orl_ic_information";
  static constexpr double tooltipMaximumWidth = 200.0;
  static constexpr double zPosition = 1.0;

  TooltipInformationView(std::string first, std::string second, std::string line, std::string message);

  static constexpr std::string_view kindName = "TooltipInformationView";
  std::string_view kind() const override { return kindName; }

  void tooltipTitleTapped();

  const std::string firstTitle;
  const std::string secondTitle;
  const std::string tooltipTitle;
  /// What the tooltip says; empty where a tap does nothing.
  const std::string guideMessage;
  const std::shared_ptr<TooltipView> tooltipView;
};

}  // namespace orrelo
