#pragma once

#include "campaign/stamp/StampCampaign.h"
#include "image/ImageView.h"
#include "ui/StackView.h"
#include "viewkit/TextStyle.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orrelo {

/// A mission: its icon over its name.
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
  /// Only whole rows are shown: the service always sends whole rows, and what is beyond them is left out.
  /// Stops the process where there are no columns.
  StampBoardView(const std::vector<Mission>& missions, std::int64_t columns);

  static constexpr std::string_view kindName = "StampBoardView";
  std::string_view kind() const override { return kindName; }

  const std::size_t columnCount;
  const std::vector<std::shared_ptr<StampViewCell>> cells;
};

/// The page of a stamp campaign: what its layout names, from top to bottom. It never changes.
class ORRELO_EXPORT StampCampaignView final : public View {
 public:
  /// Between two blocks.
  static constexpr double spacing = 16.0;
  /// From either edge, but for the information, which has margins of its own.
  static constexpr double inset = 20.0;

  /// Stops the process where the layout names the board and that has no columns.
  explicit StampCampaignView(const StampCampaign& campaign);

  static constexpr std::string_view kindName = "StampCampaignView";
  std::string_view kind() const override { return kindName; }

  const std::shared_ptr<StackView> stackView = std::make_shared<StackView>();

 private:
  /// Null where there is nothing to show.
  static std::shared_ptr<View> blockOf(StampCampaignComponent component, const StampCampaign& campaign);
};

}  // namespace orrelo
