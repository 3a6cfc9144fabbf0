#include "referral/ReferralViewController.h"

#include "base/explain.h"
#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "ui/followOnMain.h"

#include <variant>

namespace orrelo {
namespace {

constexpr auto verify = "인증";
constexpr auto verified = "인증 완료";
constexpr auto authorize = "친구 코드 입력 완료";

}  // namespace

ReferralViewController::ReferralViewController(std::shared_ptr<const ReferralViewModel> viewModel,
                                               const BrandTheme& theme)
    : brandTheme(theme),
      verificationButton(std::make_shared<RxButton>(verify)),
      authorizationButton(std::make_shared<RxButton>(authorize)),
      viewModel_(std::move(viewModel)) {
  verificationButton->accessibilityIdentifier = "verificationButton";
  setVerified(false);
}

void ReferralViewController::viewDidLoad() {
  ORLUIViewController::viewDidLoad();
  const auto self = std::static_pointer_cast<ReferralViewController>(shared_from_this());
  followOnMain(viewModel_->transform(taps(*verificationButton), taps(*authorizationButton)), self,
               disposeBag_, &ReferralViewController::render, [](ReferralViewController&, const Error& error) {
                 explain(ExplanationLevel::error, [&] {
                   return "A referral code could not be checked, and the screen stops: " +
                          error.localizedDescription();
                 });
               });
}

reactive::Observable<ReferralViewModel::Tap> ReferralViewController::taps(const RxButton& button) {
  return button.tap().compactMap(
      [weak = weak_from_this()](reactive::Unit) -> std::optional<ReferralViewModel::Tap> {
        const auto self = std::static_pointer_cast<ReferralViewController>(weak.lock());
        if (!self) return std::nullopt;
        return ReferralViewModel::Tap{self->code_, currentUserId()};
      });
}

void ReferralViewController::setCode(std::string code) {
  if (state().isCodeEditable) code_ = std::move(code);
}

void ReferralViewController::render(const ReferralViewState& viewState) {
  state_.change([](State& state) { state.isLoading = false; });
  std::visit([this](const auto& each) { show(each); }, viewState.value);
}

void ReferralViewController::show(const ReferralViewState::Idle&) {
  setVerified(false);
}

void ReferralViewController::show(const ReferralViewState::Loading&) {
  state_.change([](State& state) { state.isLoading = true; });
}

void ReferralViewController::show(const ReferralViewState::Verified&) {
  setVerified(true);
  UserEventTracker::track(UserEventName::referralCodeConfirmed);
}

void ReferralViewController::show(const ReferralViewState::Authorized& authorized) {
  const auto& reward = authorized.rewardMessage;
  const auto card = std::make_shared<CampaignRewardViewController>(CampaignRewardViewController::Content{
      reward.title, reward.message, reward.buttonText, brandTheme.primary});
  card->delegate = std::static_pointer_cast<ReferralViewController>(shared_from_this());
  present(card, false);
  UserEventTracker::track(UserEventName::referralCodeAuthorized);
}

void ReferralViewController::show(const ReferralError& error) {
  toastLayer->showToast(error.toast(), Color());
}

void ReferralViewController::setVerified(bool isVerified) {
  // The order lets the front move the keyboard's focus before a button is disabled.
  authorizationButton->state.set({authorize, isVerified});
  verificationButton->state.set({isVerified ? verified : verify, !isVerified});
  state_.change([isVerified](State& state) {
    state.isCodeEditable = !isVerified;
    state.codeColor = isVerified ? verifiedCodeColor : plainTextColor;
  });
}

void ReferralViewController::didClose() {
  const auto keep = shared_from_this();
  dismiss(false);
}

}  // namespace orrelo
