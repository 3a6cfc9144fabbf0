#include "quick/bridge/Kinds.h"

#include "quick/viewkit/CampaignNoticeBridge.h"
#include "quick/viewkit/ErrorScreenBridge.h"
#include "quick/viewkit/InformationBridge.h"
#include "quick/viewkit/NoticeBridge.h"
#include "quick/viewkit/PopUpDialogScreenBridge.h"
#include "quick/viewkit/RewardScreenBridge.h"
#include "quick/viewkit/ShareSheetScreenBridge.h"
#include "quick/viewkit/WebBridge.h"

#include <array>

namespace orrelo::quick {

Kinds viewkitKinds() {
  static constexpr std::array views{
      viewKind<CampaignNoticeView, CampaignNoticeBridge>(),
      viewKind<InformationView, InformationBridge>(),
      viewKind<NoticeView, NoticeBridge>(),
      viewKind<WebView, WebBridge>(),
  };
  static constexpr std::array screens{
      screenKind<CampaignRewardViewController, RewardScreenBridge>(),
      screenKind<ErrorViewController, ErrorScreenBridge>(),
      screenKind<PopUpDialogViewController, PopUpDialogScreenBridge>(),
      screenKind<ShareSheetViewController, ShareSheetScreenBridge>(),
  };
  return {.views = views, .screens = screens};
}

}  // namespace orrelo::quick
