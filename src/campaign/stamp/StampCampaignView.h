#pragma once

#include "campaign/stamp/StampCampaign.h"
#include "ui/StackView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string_view>

namespace orrelo {

/// The page of a stamp campaign: the blocks of its layout from top to bottom. It never changes.
class ORRELO_EXPORT StampCampaignView final : public View {
 public:
  /// The spacing between two blocks.
  static constexpr double spacing = 16.0;
  /// The distance to both edges. The information block has its own margins instead.
  static constexpr double inset = 20.0;

  /// Stops the process if the layout contains the board and the number of columns is 0.
  explicit StampCampaignView(const StampCampaign& campaign);

  static constexpr std::string_view kindName = "StampCampaignView";
  std::string_view kind() const override { return kindName; }

  const std::shared_ptr<StackView> stackView = std::make_shared<StackView>();

 private:
  /// Returns null if there is nothing to show.
  static std::shared_ptr<View> blockOf(StampCampaignComponent component, const StampCampaign& campaign);
};

}  // namespace orrelo
