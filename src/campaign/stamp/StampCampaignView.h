#pragma once

#include "campaign/stamp/StampCampaign.h"
#include "image/ImageView.h"
#include "ui/StackView.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// A mission: its icon above its name.
class ORRELO_EXPORT StampViewCell final : public View {
 public:
  explicit StampViewCell(const Mission& mission) : name(mission.name) { imageView->load(mission.iconUrl); }

  std::string_view kind() const override { return "StampViewCell"; }

  const std::string name;
  const std::shared_ptr<ImageView> imageView = std::make_shared<ImageView>();
};

/// The missions, row by row.
class ORRELO_EXPORT StampBoardView final : public View {
 public:
  /// Only whole rows are shown: the service always sends whole rows, and the missions of an incomplete row
  /// are left out. Stops the process if `columns` is 0.
  StampBoardView(const std::vector<Mission>& missions, std::int64_t columns);

  static constexpr std::string_view kindName = "StampBoardView";
  std::string_view kind() const override { return kindName; }

  const std::size_t columnCount;
  const std::vector<std::shared_ptr<StampViewCell>> cells;
};

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
