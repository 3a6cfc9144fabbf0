#include "rewards/point/PointView.h"

#include "base/numberText.h"
#include "rewards/point/amountText.h"
#include "viewkit/joinedLabel.h"

namespace orrelo {

void PointView::update(const Point& point) {
  state.change([&](State& changed) {
    changed.myPoint = point.body;
    changed.pointAmount = numberText(point.amount);
    changed.pointUnit = point.unit;
    changed.accessibilityLabel = joinedLabel(point.body, amountText(point.amount, point.unit));
  });
  // A new load would clear the picture for a moment.
  if (point.iconUrl == iconUrl_ && rewardImageView->state.value().image) return;
  iconUrl_ = point.iconUrl;
  rewardImageView->load(iconUrl_);
}

void PointView::setHidden(bool isHidden) {
  state.change([isHidden](State& changed) { changed.isHidden = isHidden; });
}

}  // namespace orrelo
