#pragma once

#include "image/ImageView.h"
#include "rewards/point/Point.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// A balance of points beside the picture of the point system.
class ORRELO_EXPORT PointView final : public View {
 public:
  struct State {
    /// The caption above the balance.
    std::string myPoint;
    /// The balance in decimal, and its unit.
    std::string pointAmount;
    std::string pointUnit;
    bool isHidden = false;
    /// The texts for assistive technology.
    std::string accessibilityLabel;

    friend bool operator==(const State&, const State&) = default;
  };
  /// The picture of a view that opens the history.
  static constexpr auto goToHistoryAsset = "orl_ic_chevron_right";

  std::string_view kind() const override { return "PointView"; }

  void update(const Point& point);
  void setHidden(bool isHidden);

  Followed<State> state;
  const std::shared_ptr<ImageView> rewardImageView = std::make_shared<ImageView>();

 private:
  std::string iconUrl_;
};

}  // namespace orrelo
