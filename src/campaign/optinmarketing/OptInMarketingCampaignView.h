#pragma once

#include "campaign/optinmarketing/OptInMarketingCampaign.h"
#include "image/ImageView.h"
#include "viewkit/CampaignNoticeView.h"
#include "viewkit/ErrorView.h"

#include <orrelo/Export.h>

#include <functional>
#include <memory>
#include <string>

namespace orrelo {

class CampaignScreen;

/// An image, a button that calls the host, and a notice.
class ORRELO_EXPORT OptInMarketingCampaignView final : public View {
 public:
  struct Button {
    std::string title;
    bool isEnabled = false;
    bool isHidden = false;
    Color color;

    friend bool operator==(const Button&, const Button&) = default;
  };

  static std::shared_ptr<OptInMarketingCampaignView> create(const OptInMarketingCampaign& campaign);

  static constexpr std::string_view kindName = "OptInMarketingCampaignView";
  std::string_view kind() const override { return kindName; }

  /// Calls the host's ORLOptInMarketingCampaignDelegate when the button is pressed, as long as `screen`
  /// exists.
  void passTapsToHost(const std::shared_ptr<CampaignScreen>& screen);
  /// Called when the button is pressed.
  void onTapMoveButton();

  const Button moveButton;
  const std::shared_ptr<AutoLayoutImageView> imageView = std::make_shared<AutoLayoutImageView>();
  const std::shared_ptr<CampaignNoticeView> noticeView;
  /// Shown if the image cannot be loaded.
  const std::shared_ptr<ErrorView> errorView;
  std::function<void()> onMoveButtonTapped;

 private:
  explicit OptInMarketingCampaignView(const OptInMarketingCampaign& campaign);
};

}  // namespace orrelo
