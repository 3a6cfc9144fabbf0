#pragma once

#include "base/Color.h"
#include "config/Config.h"
#include "referral/ReferralViewModel.h"
#include "viewkit/CampaignRewardViewController.h"
#include "viewkit/ORLUIViewController.h"
#include "viewkit/RxButton.h"
#include "viewkit/legibility.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orrelo {

/// The screen where the user enters the code of a friend: first the code is verified, then authorized, which
/// earns a reward. After an error of the network both buttons do nothing until the screen is opened again.
class ORRELO_EXPORT ReferralViewController final : public ORLUIViewController,
                                                   public CampaignRewardViewControllerDelegate {
 public:
  struct State {
    bool isLoading = false;
    /// False once the code has been verified.
    bool isCodeEditable = true;
    Color codeColor = plainTextColor;

    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr auto messageLabel = "친구의 초대 코드를 입력하시면,\n친구 추천 리워드를 드려요!";
  static constexpr auto codePlaceholder = "친구 추천코드를 입력하세요.";
  static constexpr auto codeTextFieldIdentifier = "codeTextField";
  static constexpr Color verifiedCodeColor{0.715, 0.717, 0.72, 1.0};

  static std::shared_ptr<ReferralViewController> create(std::shared_ptr<const ReferralViewModel> viewModel,
                                                        const BrandTheme& theme) {
    return std::shared_ptr<ReferralViewController>(new ReferralViewController(std::move(viewModel), theme));
  }

  static constexpr std::string_view kindName = "ReferralViewController";
  std::string_view kind() const override { return kindName; }

  const State& state() const { return state_.value(); }
  reactive::Observable<reactive::Unit> stateChanges() const { return state_.changes(); }
  /// Called by the front with the text of the field whenever it changes. Ignored once the code has been
  /// verified.
  void setCode(std::string code);
  const std::string& code() const { return code_; }

  /// Called when the reward's card closes: leaves this screen too.
  void didClose() override;

  const BrandTheme brandTheme;
  const std::shared_ptr<RxButton> verificationButton;
  const std::shared_ptr<RxButton> authorizationButton;

 protected:
  void viewDidLoad() override;

 private:
  ReferralViewController(std::shared_ptr<const ReferralViewModel> viewModel, const BrandTheme& theme);

  /// The throttled taps, with the code and the user at the moment when a tap passes.
  reactive::Observable<ReferralViewModel::Tap> taps(const RxButton& button);
  void render(const ReferralViewState& viewState);
  void show(const ReferralViewState::Idle& idle);
  void show(const ReferralViewState::Loading& loading);
  void show(const ReferralViewState::Verified& verified);
  void show(const ReferralViewState::Authorized& authorized);
  void show(const ReferralError& error);
  /// Sets the buttons and the field for a code that is verified or not.
  void setVerified(bool isVerified);

  const std::shared_ptr<const ReferralViewModel> viewModel_;
  std::string code_;
  Followed<State> state_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
