#include "campaign/stamp/StampBoardView.h"

#include "base/preconditionFailure.h"

#include <algorithm>
#include <iterator>

namespace orrelo {
namespace {

std::vector<std::shared_ptr<StampViewCell>> wholeRows(const std::vector<Mission>& missions,
                                                      std::int64_t columnCount) {
  if (columnCount == 0) preconditionFailure("A stamp board has no columns");
  if (columnCount < 0) return {};
  const auto columns = static_cast<std::size_t>(columnCount);
  std::vector<std::shared_ptr<StampViewCell>> cells;
  std::transform(missions.begin(), missions.begin() + std::ptrdiff_t(missions.size() / columns * columns),
                 std::back_inserter(cells),
                 [](const Mission& mission) { return std::make_shared<StampViewCell>(mission); });
  return cells;
}

}  // namespace

StampBoardView::StampBoardView(const std::vector<Mission>& missions, std::int64_t columns)
    : columnCount(static_cast<std::size_t>(std::max<std::int64_t>(0, columns))),
      cells(wholeRows(missions, columns)) {}

}  // namespace orrelo
