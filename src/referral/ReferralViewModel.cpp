#include "referral/ReferralViewModel.h"

#include "events/UserEventTracker.h"
#include "reactive/Combining.h"
#include "reactive/Observable.h"

#include <variant>

namespace orrelo {
namespace {

using reactive::Maybe;
using reactive::Observable;
using Tap = ReferralViewModel::Tap;
using Reason = ReferralError::Reason;

struct Answer {
  ReferralViewState state;
  /// False for a tap that needed no answer of the service.
  bool isFromService = true;
};

ReferralViewState stateOf(const ReferralVerificationResult& result) {
  const auto* const error = std::get_if<ReferralVerificationResult::Error>(&result.value);
  if (error == nullptr) return {ReferralViewState::Verified()};
  return {ReferralError{ReferralError::NotVerified{error->message}}};
}

ReferralViewState stateOf(const ReferralAuthorizationResult& result) {
  const auto* const error = std::get_if<ReferralAuthorizationResult::Error>(&result.value);
  if (error != nullptr) return {ReferralError{ReferralError::NotAuthorized{error->message}}};
  return {ReferralViewState::Authorized{
      std::get<ReferralAuthorizationResult::Authorized>(result.value).rewardMessage}};
}

/// The states of one button. `call` asks the service.
template <class Call>
Observable<ReferralViewState> chain(const Observable<Tap>& taps, UserEventName event, Call call) {
  const auto fixed = [](Reason reason) { return reactive::just(Answer{{ReferralError{reason}}, false}); };
  return taps
      .flatMapLatest([fixed, call](const Tap& tap) -> Observable<Answer> {
        // The code is checked first, so that an empty field says so to a user who is signed out, too.
        if (!tap.code || tap.code->empty()) return fixed(Reason::emptyCode);
        if (!tap.userId) return fixed(Reason::isNotLoggedIn);
        return call(*tap.code, *tap.userId)
            .map([](const auto& result) { return Answer{stateOf(result)}; })
            .ifEmpty(Answer{{ReferralError{Reason::unknown}}})
            .asObservable();
      })
      // Events are reported on the main thread.
      .observeOn(reactive::MainScheduler::instance())
      .map([event](const Answer& answer) {
        if (answer.isFromService) UserEventTracker::track(event);
        return answer.state;
      });
}

}  // namespace

Observable<ReferralViewState> ReferralViewModel::transform(const Observable<Tap>& verificationTaps,
                                                           const Observable<Tap>& authorizationTaps) const {
  return reactive::merge<ReferralViewState>({
      reactive::just(ReferralViewState{ReferralViewState::Idle()}),
      chain(verificationTaps, UserEventName::referralCodeConfirmButtonClick,
            [service = referralService_](const std::string& code, const std::string& userId) {
              return service->verify(code, userId);
            }),
      chain(authorizationTaps, UserEventName::referralCodeAuthorizeButtonClick,
            [service = referralService_](const std::string& code, const std::string& userId) {
              return service->authorize(code, userId);
            }),
  });
}

}  // namespace orrelo
