#include "reactive/Observable.h"
#include "support/TestPlatform.h"
#include "viewkit/ErrorViewController.h"
#include "viewkit/IconRectangleButton.h"
#include "viewkit/RxButton.h"
#include "viewkit/ToastLayer.h"
#include "viewkit/joinedLabel.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ToastLayerTest, EqualToastsAreShownOnceAtATime) {
  ToastLayer layer;
  const auto shown = [&] {
    std::vector<std::string> messages;
    for (const auto& toast : layer.toasts.value()) messages.push_back(toast->message);
    return messages;
  };
  layer.showToast("하나", Color());
  const auto first = layer.toasts.value().at(0);
  layer.showToast("하나", Color{1.0, 0.0, 0.0, 1.0});
  EXPECT_THAT(layer.toasts.value(), ElementsAre(first));
  layer.showToast("둘", Color());
  layer.showToast("", Color());
  EXPECT_THAT(shown(), ElementsAre("하나", "둘", ""));
  layer.fadeDidFinish(*first);
  EXPECT_THAT(shown(), ElementsAre("둘", ""));
  layer.fadeDidFinish(*first);
  layer.showToast("하나", Color());
  EXPECT_THAT(shown(), ElementsAre("둘", "", "하나"));
}

TEST(ToastLayerTest, ToastsGoWithTheirScreen) {
  const auto screen = std::make_shared<ErrorViewController>("");
  screen->appear(false);
  screen->toastLayer->showToast("하나", Color());
  screen->disappear(false);
  EXPECT_THAT(screen->toastLayer->toasts.value(), IsEmpty());
}

TEST(RxButtonTest, TheFirstAndTheLastPressOfAnIntervalPass) {
  const TestPlatform platform;
  RxButton button("인증");
  int taps = 0;
  const auto subscription = button.tap().subscribe([&](reactive::Unit) { ++taps; });
  for (int i = 0; i < 3; ++i) button.onTouchUpInside();
  EXPECT_EQ(taps, 1);
  platform.loop->runFor(std::chrono::milliseconds(1'999));
  EXPECT_EQ(taps, 1);
  platform.loop->runFor(std::chrono::milliseconds(1));
  EXPECT_EQ(taps, 2);
  platform.loop->runFor(std::chrono::seconds(10));
  EXPECT_EQ(taps, 2);
  button.state.change([](RxButton::State& state) { state.isEnabled = false; });
  button.onTouchUpInside();
  EXPECT_EQ(taps, 2);
  subscription.dispose();
}

TEST(JoinedLabelTest, LeavesOutAnEmptyText) {
  EXPECT_EQ(joinedLabel("출석체크", "포인트 받기"), "출석체크, 포인트 받기");
  EXPECT_EQ(joinedLabel("", "포인트 받기"), "포인트 받기");
  EXPECT_EQ(joinedLabel("출석체크", ""), "출석체크");
}

TEST(IconRectangleButtonTest, CountsToNine) {
  IconRectangleButton button("orl_ic_gifticon", "기프티콘");
  const auto badge = [&](std::optional<std::int64_t> count) {
    button.setBadge(count, Color());
    return button.state.value().badgeText;
  };
  EXPECT_EQ(badge(std::nullopt), "");
  EXPECT_EQ(badge(0), "0");
  EXPECT_EQ(badge(9), "9");
  EXPECT_EQ(badge(10), "9+");
}

}  // namespace
}  // namespace orrelo::test
