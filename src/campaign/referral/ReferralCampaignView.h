#pragma once

#include "campaign/referral/ReferralCampaign.h"
#include "ui/View.h"
#include "viewkit/CampaignInfoView.h"
#include "viewkit/CampaignNoticeView.h"
#include "viewkit/ToastLayer.h"

#include <orrelo/Export.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace orrelo {

/// The page of a referral campaign: the user's code with the buttons that copy and share it, a box that leads
/// to the screen for a friend's code, and the number of friends who have joined.
class ORRELO_EXPORT ReferralCampaignView final : public View {
 public:
  static constexpr auto shareTitle = "초대 링크 공유하기";
  static constexpr auto shareAsset = "orl_ic_share";
  static constexpr auto navigateHeading = "친구의 초대코드 입력";
  static constexpr auto navigateLabel = "받은 초대코드를 입력하려면";
  static constexpr auto navigateLink = "여기👋";
  static constexpr auto joinedHeading = "내가 초대한 친구 현황";
  static constexpr auto joinedLabel = "가입한 친구";
  static constexpr auto copyCodeButtonIdentifier = "copyCodeButton";
  static constexpr auto shareMessageButtonIdentifier = "shareMessageButton";
  static constexpr auto navigateViewIdentifier = "navigateView";

  /// A view without a campaign shows its fixed texts, and its buttons do nothing. `brand` is the colour of
  /// the link in the navigate box.
  explicit ReferralCampaignView(std::optional<ReferralCampaign> campaign = {}, const Color& brand = {});

  static constexpr std::string_view kindName = "ReferralCampaignView";
  std::string_view kind() const override { return kindName; }

  /// Called for the copy button: puts the code on the pasteboard.
  void copyCode();
  /// Called for the share button: lets the platform share the campaign's message.
  void shareReferralMessage();
  /// Called for a tap on the navigate box: leads to the screen for a friend's code, or says why the user may
  /// not enter one.
  void showReferralViewController();
  /// Called by the front after each layout and while the page scrolls, until `awaitsNavigateView` is false.
  /// Both are in coordinates of the page. The first time that they intersect, the box is reported as shown.
  void didLayOut(const Rect& navigateView, const Rect& visibleBounds);

  const std::optional<ReferralCampaign> referralCampaign;
  const Color brandColor;
  const std::string copyTitle;
  /// The number of friends with its unit.
  const std::string joinedCount;
  const std::shared_ptr<CampaignInfoView> infoView = std::make_shared<CampaignInfoView>();
  const std::shared_ptr<CampaignNoticeView> noticeView;
  const std::shared_ptr<ToastLayer> toastLayer = std::make_shared<ToastLayer>();
  /// True until the navigate box has been in sight.
  Followed<bool> awaitsNavigateView{true};
  std::function<void()> onNavigateViewDidTap;
};

}  // namespace orrelo
