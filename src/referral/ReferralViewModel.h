#pragma once

#include "reactive/ObservableType.h"
#include "referral/ReferralService.h"
#include "referral/ReferralViewState.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace orrelo {

/// Turns the taps of the screen for a friend's code into its states.
class ReferralViewModel {
 public:
  struct Tap {
    std::optional<std::string> code;
    /// The current user; absent if nobody is signed in.
    std::optional<std::string> userId;
  };

  explicit ReferralViewModel(std::shared_ptr<ReferralService> referralService)
      : referralService_(std::move(referralService)) {}
  virtual ~ReferralViewModel() = default;

  /// Emits `Idle`, then the answer to each tap on the main thread. A tap supersedes the running one of its
  /// own kind. The event of an answered tap is reported with the answer, and none for a tap that the service
  /// was not asked about. An error of the service ends the stream, and with it both kinds of taps.
  virtual reactive::Observable<ReferralViewState> transform(
      const reactive::Observable<Tap>& verificationTaps,
      const reactive::Observable<Tap>& authorizationTaps) const;

 private:
  std::shared_ptr<ReferralService> referralService_;
};

}  // namespace orrelo
