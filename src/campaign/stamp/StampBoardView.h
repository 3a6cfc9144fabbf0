#pragma once

#include "campaign/stamp/StampCampaign.h"
#include "campaign/stamp/StampViewCell.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace orrelo {

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

}  // namespace orrelo
