#include "ReferralFixture.h"
#include "model/UserManager.h"
#include "reactive/Observable.h"
#include "referral/ReferralRouter.h"
#include "referral/ReferralViewController.h"
#include "support/ExplanationCapture.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string later = "잠시 후 다시 시도해주세요.";
const auto confirmed = "ol_referral_code_confirm_button_click";
const auto authorizing = "ol_referral_code_authorize_button_click";

class ReferralScreenTest : public ReferralFixture {
 protected:
  ReferralScreenTest() {
    host_->appear(false);
    router_ = std::make_shared<ReferralRouter>(std::make_shared<ReferralViewControllerFactoryImpl>(service_),
                                               config_);
  }

  void route() {
    router_->route(
        host_, [this] { routed_.emplace_back("success"); },
        [this](const Error& error) { routed_.push_back(error.description()); });
  }
  void open() {
    route();
    platform_.loop->run();
    screen_ = std::dynamic_pointer_cast<ReferralViewController>(host_->presentedViewController());
    ASSERT_TRUE(screen_);
  }
  void openWith(const std::string& code) {
    open();
    screen_->setCode(code);
  }
  /// Taps after the interval in which taps are held back.
  void tap(const std::shared_ptr<RxButton>& button) {
    platform_.loop->runFor(std::chrono::seconds(2));
    button->onTouchUpInside();
    platform_.loop->run();
  }
  void verify() { tap(screen_->verificationButton); }
  void authorize() { tap(screen_->authorizationButton); }
  /// The toasts since the last call.
  std::vector<std::string> toasts() const {
    std::vector<std::string> texts;
    for (const auto& toast : screen_->toastLayer->toasts.value()) texts.push_back(toast->message);
    screen_->toastLayer->toasts.set({});
    return texts;
  }
  bool canVerify() const { return screen_->verificationButton->state.value().isEnabled; }
  bool canAuthorize() const { return screen_->authorizationButton->state.value().isEnabled; }
  std::shared_ptr<CampaignRewardViewController> card() const {
    return std::dynamic_pointer_cast<CampaignRewardViewController>(screen_->presentedViewController());
  }

  std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();
  std::shared_ptr<ReferralRouter> router_;
  std::vector<std::string> routed_;
  std::shared_ptr<ReferralViewController> screen_;
};

TEST_F(ReferralScreenTest, AFriendsCodeIsVerifiedThenAuthorizedAndRewarded) {
  config_->config.brandTheme.primary = Color::fromHex("#5B50E8");
  openWith("FRIEND-1");
  EXPECT_THAT(routed_, ElementsAre("success"));
  EXPECT_TRUE(host_->presented().animated);
  EXPECT_EQ(screen_->modalTopBar().height, 44.0);
  EXPECT_EQ(screen_->verificationButton->state.value(), (RxButton::State{"인증", true}));
  EXPECT_EQ(screen_->authorizationButton->state.value(), (RxButton::State{"친구 코드 입력 완료", false}));
  EXPECT_EQ(screen_->state(), (ReferralViewController::State{false, true, {0.239, 0.243, 0.247, 1.0}}));

  verify();
  EXPECT_THAT(reports_->names, IsEmpty()) << "the tap itself is no event";
  answer(200, verification(true));
  EXPECT_THAT(reports_->names, ElementsAre(confirmed, "ol_referral_code_confirmed"));
  EXPECT_EQ(screen_->verificationButton->state.value(), (RxButton::State{"인증 완료", false}));
  EXPECT_TRUE(canAuthorize());
  EXPECT_EQ(screen_->state(), (ReferralViewController::State{false, false, {0.715, 0.717, 0.72, 1.0}}));
  screen_->setCode("OTHER");
  EXPECT_EQ(screen_->code(), "FRIEND-1") << "a verified code cannot be edited";

  reports_->names.clear();
  authorize();
  answer(200, authorization("message", "재고가 없어요."));
  ASSERT_TRUE(card()) << "the message of a success is not shown";
  EXPECT_THAT(toasts(), IsEmpty());
  EXPECT_THAT(reports_->names,
              ElementsAre(authorizing, "ol_reward_pop_up_show", "ol_referral_code_authorized"));
  EXPECT_EQ(requestsTo("authorize").at(0).body, R"({"code":"FRIEND-1"})");
  EXPECT_EQ(card()->content.title, "축하해요");
  EXPECT_EQ(card()->content.message, "500P를 받았어요");
  EXPECT_EQ(card()->content.color, config_->config.brandTheme.primary);
  EXPECT_FALSE(screen_->presented().animated);
  card()->close();
  EXPECT_FALSE(host_->presentedViewController());
  EXPECT_FALSE(host_->presented().animated);
}

TEST_F(ReferralScreenTest, AnErrorIsAToastAndLeavesTheButtons) {
  setCurrentUserId(std::nullopt);
  open();
  verify();
  EXPECT_THAT(toasts(), ElementsAre("코드를 입력해주세요."));
  screen_->setCode(" ");
  verify();
  EXPECT_THAT(toasts(), ElementsAre("로그인 후 다시 시도해주세요."));
  EXPECT_THAT(platform_.session->requests, IsEmpty());
  setCurrentUserId("minji");
  list_ = ScriptedURLSession::reply(200, "[]");
  verify();
  EXPECT_THAT(toasts(), ElementsAre(later));
  EXPECT_THAT(reports_->names, ElementsAre(confirmed)) << "only an answered tap is an event";
  list_ = ScriptedURLSession::reply(200, campaigns().dump());
  for (const Json& message : {Json("없는 코드예요."), Json(nullptr)}) {
    verify();
    answer(200, verification(false, message));
    EXPECT_THAT(toasts(), ElementsAre(message.is_null() ? "" : message.get<std::string>()));
    EXPECT_TRUE(canVerify() && !canAuthorize());
  }
  EXPECT_EQ(requestsTo("verify").back().body, R"({"code":" "})") << "blanks are a code";
  verify();
  answer(200, verification(true));
  authorize();
  answer(200, authorization("result", Json(false)));
  EXPECT_THAT(toasts(), ElementsAre(""));
  EXPECT_TRUE(!canVerify() && canAuthorize());
  authorize();
  answer(200, authorization());
  EXPECT_TRUE(card()) << "a refused code can be tried again";
}

TEST_F(ReferralScreenTest, ATapThatIsHeldBackTakesTheCodeAndTheUserOfItsOwnMoment) {
  openWith("FIRST");
  verify();
  screen_->verificationButton->onTouchUpInside();
  screen_->verificationButton->onTouchUpInside();
  screen_->setCode("SECOND");
  setCurrentUserId("jun");
  EXPECT_EQ(requestsTo("verify").size(), 1U);
  platform_.loop->runFor(std::chrono::seconds(2));
  ASSERT_EQ(requestsTo("verify").size(), 2U);
  EXPECT_EQ(requestsTo("verify")[1].body, R"({"code":"SECOND"})");
  EXPECT_EQ(requestsTo("verify")[1].headers.at("buid"), "jun");
  EXPECT_EQ(platform_.session->cancelled, 1) << "a new tap supersedes the one before";
  answer(200, verification(false, "먼저"));
  EXPECT_THAT(toasts(), IsEmpty());
  answer(200, verification(true));
  EXPECT_TRUE(canAuthorize());
  EXPECT_THAT(reports_->names, ElementsAre(confirmed, "ol_referral_code_confirmed"));
}

TEST_F(ReferralScreenTest, AFailureOfTheNetworkStopsTheScreenUntilItIsOpenedAnew) {
  openWith("FRIEND-1");
  const ExplanationCapture log;
  verify();
  answer(500, "");
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("A referral code could not be checked")));
  EXPECT_THAT(toasts(), IsEmpty());
  EXPECT_THAT(reports_->names, IsEmpty());
  EXPECT_TRUE(canVerify());
  const auto requests = platform_.session->requests.size();
  verify();
  authorize();
  EXPECT_EQ(platform_.session->requests.size(), requests);
  screen_->close();
  EXPECT_FALSE(host_->presentedViewController());
  openWith("FRIEND-1");
  verify();
  EXPECT_GT(platform_.session->requests.size(), requests);
  const std::weak_ptr<ViewController> gone = screen_;
  host_->dismiss(false);
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(platform_.session->cancelled, 1);
}

/// Emits what the test sends.
class SentStates final : public ReferralViewModel {
 public:
  SentStates() : ReferralViewModel(nullptr) {}
  reactive::Observable<ReferralViewState> transform(const reactive::Observable<Tap>&,
                                                    const reactive::Observable<Tap>&) const override {
    return states.asObservable();
  }

  const reactive::PublishSubject<ReferralViewState> states;
};

TEST_F(ReferralScreenTest, EveryStateStopsTheIndicatorThatLoadingStarts) {
  const auto viewModel = std::make_shared<const SentStates>();
  screen_ = ReferralViewController::create(viewModel, {});
  host_->present(screen_, false);
  const auto send = [&](const ReferralViewState& state) {
    viewModel->states.onNext(state);
    platform_.loop->run();
    return screen_->state().isLoading;
  };
  using Reason = ReferralError::Reason;
  for (const auto& next : std::vector<ReferralViewState>{{ReferralViewState::Idle()},
                                                         {ReferralViewState::Verified()},
                                                         {ReferralError{Reason::network}},
                                                         {ReferralViewState::Authorized()}}) {
    EXPECT_TRUE(send({ReferralViewState::Loading()}));
    EXPECT_FALSE(send(next));
  }
  EXPECT_THAT(toasts(), ElementsAre(later));
}

TEST_F(ReferralScreenTest, ARouteFailsWithTheConfigurationOrWhenItsPartsAreGone) {
  config_->error = Error("Test", "offline");
  route();
  platform_.loop->run();
  config_->error.reset();
  route();
  router_ = nullptr;
  platform_.loop->run();
  router_ = std::make_shared<ReferralRouter>(std::make_shared<ReferralViewControllerFactoryImpl>(service_),
                                             config_);
  route();
  host_ = nullptr;
  platform_.loop->run();
  EXPECT_THAT(routed_,
              ElementsAre("Test.offline", "OrreloError.referenceDeallocation", "ReferenceError.deallocated"));
}

}  // namespace
}  // namespace orrelo::test
