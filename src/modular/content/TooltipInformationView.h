#pragma once

#include "viewkit/TooltipView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// Like InformationView, with a line that opens a tooltip instead of the guide.
class ORRELO_EXPORT TooltipInformationView final : public View {
 public:
  /// The icon before the line; it is omitted if the image is missing.
  static constexpr auto tooltipAsset = "orl_ic_information";

  TooltipInformationView(std::string first, std::string second, std::string line, std::string message);

  static constexpr std::string_view kindName = "TooltipInformationView";
  std::string_view kind() const override { return kindName; }

  void tooltipTitleTapped();

  const std::string firstTitle;
  const std::string secondTitle;
  const std::string tooltipTitle;
  /// The text of the tooltip; if empty, a tap does nothing.
  const std::string guideMessage;
  const std::shared_ptr<TooltipView> tooltipView;
};

}  // namespace orrelo
