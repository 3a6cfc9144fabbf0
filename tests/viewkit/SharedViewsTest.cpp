#include "reactive/Observable.h"
#include "support/TestPlatform.h"
#include "ui/StackView.h"
#include "viewkit/ErrorViewController.h"
#include "viewkit/IconRectangleButton.h"
#include "viewkit/RxButton.h"
#include "viewkit/ToastLayer.h"
#include "viewkit/TooltipView.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(StackViewTest, SpacingBelongsToTheLastViewAndTheLatterHolds) {
  const auto first = std::make_shared<StackView>();
  const auto second = std::make_shared<StackView>();
  StackView stack;
  stack.setCustomSpacingAfterLast(5.0);
  EXPECT_THAT(stack.arrangedSubviews, IsEmpty());
  stack.addArrangedSubview(first);
  stack.setCustomSpacingAfterLast(8.0);
  stack.setCustomSpacingAfterLast(12.0);
  stack.addArrangedSubview(second, 20.0);
  EXPECT_EQ(stack.arrangedSubviews,
            (std::vector<StackView::Arranged>{{first, 0.0, 12.0}, {second, 20.0, 0.0}}));
}

class ToastLayerTest : public testing::Test {
 protected:
  std::vector<std::string> standing() const {
    std::vector<std::string> messages;
    for (const auto& toast : layer_.toasts.value()) messages.push_back(toast->message);
    return messages;
  }

  ToastLayer layer_;
};

TEST_F(ToastLayerTest, EqualToastsNeverStandAtOnceAndDifferentOnesMay) {
  layer_.showToast("하나", Color());
  const auto first = layer_.toasts.value().at(0);
  layer_.showToast("하나", Color{1.0, 0.0, 0.0, 1.0});
  EXPECT_THAT(layer_.toasts.value(), ElementsAre(first));
  layer_.showToast("둘", Color());
  layer_.showToast("", Color());
  EXPECT_THAT(standing(), ElementsAre("하나", "둘", ""));
  layer_.fadeDidFinish(*first);
  EXPECT_THAT(standing(), ElementsAre("둘", ""));
  layer_.fadeDidFinish(*first);
  layer_.showToast("하나", Color());
  EXPECT_THAT(standing(), ElementsAre("둘", "", "하나"));
}

TEST_F(ToastLayerTest, ToastsGoWithTheirScreen) {
  const auto screen = std::make_shared<ErrorViewController>("");
  screen->appear(false);
  screen->toastLayer->showToast("하나", Color{1.0, 0.5, 0.0, 1.0});
  EXPECT_EQ(screen->toastLayer->toasts.value().at(0)->backgroundColor, (Color{1.0, 0.5, 0.0, 0.87}));
  screen->disappear(false);
  EXPECT_THAT(screen->toastLayer->toasts.value(), IsEmpty());
}

TEST_F(ToastLayerTest, AToastIsSeenForThreeSecondsOnALittleOfItsColour) {
  layer_.showToast("하나", Color{1.0, 0.5, 0.0, 1.0});
  const auto toast = layer_.toasts.value().at(0);
  EXPECT_EQ(toast->backgroundColor, (Color{1.0, 0.5, 0.0, 0.87}));
  EXPECT_EQ(toast->accessibilityIdentifier, "OrreloToast");
  EXPECT_EQ(ToastView::fade.delay + ToastView::fade.duration, std::chrono::seconds(3));
  EXPECT_EQ(ToastView::fade.delay, std::chrono::seconds(1));
}

TEST(TooltipViewTest, TheTailStandsWhereItsBiasSays) {
  const TooltipView above({.tailPosition = TooltipView::TailPosition::top, .horizontalBias = 0.5});
  const auto shape = above.shape({200.0, 60.0});
  EXPECT_EQ(shape.top, 10.0);
  EXPECT_EQ(shape.size, (Size{200.0, 50.0}));
  EXPECT_EQ(shape.tail[1], (Point{107.0, 0.0}));
  const TooltipView below({.tailPosition = TooltipView::TailPosition::bottom, .horizontalBias = 0.0});
  EXPECT_EQ(below.shape({200.0, 60.0}).tail[0], (Point{0.0, 50.0}));
  EXPECT_EQ(below.shape({200.0, 60.0}).tail[1], (Point{7.0, 60.0}));
}

TEST(RxButtonTest, OfThePressesInAnIntervalTheFirstAndTheLastPass) {
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

TEST(IconRectangleButtonTest, CountsToNine) {
  const Color red{1.0, 0.0, 0.0, 1.0};
  IconRectangleButton button("orl_ic_gifticon", "기프티콘");
  const auto badge = [&](std::optional<std::int64_t> count) {
    button.setBadge(count, red);
    return button.state.value().badgeText;
  };
  EXPECT_EQ(badge(std::nullopt), "");
  EXPECT_EQ(badge(0), "0");
  EXPECT_EQ(badge(9), "9");
  EXPECT_EQ(badge(10), "9+");
  EXPECT_EQ(button.state.value().badgeColor, red);
}

}  // namespace
}  // namespace orrelo::test
