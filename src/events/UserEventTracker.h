#pragma once

#include <orrelo/ORLUserEvent.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace orrelo {

enum class UserEventValueKey {
  campaignId,
  campaignType,
  campaignEntryPointName,
  rewardTabItemName,
  pageName
};
std::string_view rawValue(UserEventValueKey key);
/// The key with this raw value; nullopt if there is none.
std::optional<UserEventValueKey> userEventValueKey(std::string_view rawValue);

/// The events of the kit's screens, in the order of the service protocol.
enum class UserEventName {
  attendanceButtonClick,
  campaignEntryPointShow,
  campaignEntryPointClick,
  campaignParticipateButtonClick,
  campaignListItemShow,
  campaignListItemClick,
  tooltipShow,
  optInMarketingMoveButtonClick,
  visit,
  pointViewShow,
  pointViewClick,
  referralCopyCodeButtonClick,
  referralNavigationViewClick,
  referralNavigationViewShow,
  referralSharingButtonClick,
  referralCodeAuthorizeButtonClick,
  referralCodeConfirmButtonClick,
  referralCodeAuthorized,
  referralCodeConfirmed,
  rewardPopUpShow,
  rewardTabShow,
  rewardTabItemClick,
  rouletteSpinWheelEnd,
  rouletteSpinWheelStart,
  scratchLotteryScratchBlock,
  scratchLotteryScratchEnd,
  induceUpdateButtonClick
};
std::string_view rawValue(UserEventName name);

/// Reports an event of a screen to the host's delegate, on the calling thread, and to the kit's own pipeline.
/// Never fails: an absent delegate or pipeline is skipped.
class UserEventTracker {
 public:
  using Values = std::map<UserEventValueKey, std::string>;

  /// An empty `values` makes an event without values.
  static void track(UserEventName name, const Values& values = {}, bool skipBI = false);
  static void track(const ORLUserEvent& event, bool skipBI = false);
};

}  // namespace orrelo
