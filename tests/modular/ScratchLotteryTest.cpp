#include "RenderedPage.h"
#include "modular/scratch/ScratchLotteryComponent.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto scratchEnd = "ol_scratch_lottery_scratch_end";
constexpr auto scratchBlock = "ol_scratch_lottery_scratch_block";

TEST(AlphaMaskTest, ALineIsErasedWithSmoothRoundEndsAndNothingElseChanges) {
  AlphaMask mask(60, 40);
  const auto at = [&](int x, int y) { return int(mask.pixels()[std::size_t(y * 60 + x)]); };
  const auto touched = mask.eraseLine({20.0, 20.0}, {40.0, 20.0}, 10.0);
  EXPECT_EQ(touched, (PixelRect{14, 14, 32, 12}));
  EXPECT_EQ(at(16, 19), 0);  // the round end
  EXPECT_EQ(at(30, 15), 0);
  EXPECT_EQ(at(30, 14), 255);
  EXPECT_EQ(at(15, 15), 255);  // outside the round end
  EXPECT_THAT(at(16, 16), testing::AllOf(testing::Gt(0), testing::Lt(255)));
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 60; ++x) EXPECT_EQ(at(x, y), at(59 - x, 39 - y)) << x << "," << y;
  }
  // A point is a round hole; lines outside the mask or without finite ends change nothing.
  EXPECT_EQ(mask.eraseLine({5.0, 5.0}, {5.0, 5.0}, 4.0), (PixelRect{2, 2, 6, 6}));
  EXPECT_EQ(at(5, 5), 0);
  const auto before = mask.pixels();
  EXPECT_TRUE(mask.eraseLine({-50.0, 5.0}, {-40.0, 90.0}, 10.0).isEmpty());
  EXPECT_TRUE(mask.eraseLine({1e300, 5.0}, {5.0, 5.0}, 10.0).isEmpty());
  EXPECT_TRUE(mask.eraseLine({5.0, std::nan("")}, {5.0, 5.0}, 10.0).isEmpty());
  EXPECT_EQ(mask.pixels(), before);
}

TEST(AlphaMaskTest, ASlantedLineErasesByEachPixelsDistance) {
  AlphaMask mask(80, 60);
  const Position from{-7.3, 12.8};
  const Position to{61.9, 48.2};
  mask.eraseLine(from, to, 17.0);
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 80; ++x) {
      const double dx = x + 0.5 - from.x;
      const double dy = y + 0.5 - from.y;
      const double along = (dx * (to.x - from.x) + dy * (to.y - from.y)) / (length * length);
      const double nearest = std::clamp(along, 0.0, 1.0);
      const double distance = std::hypot(dx - nearest * (to.x - from.x), dy - nearest * (to.y - from.y));
      const double left = std::clamp(distance - 8.0, 0.0, 1.0);
      EXPECT_NEAR(mask.pixels()[std::size_t(y * 80 + x)], 255.0 * left, 0.51) << x << "," << y;
    }
  }
}

TEST(AlphaMaskTest, EachRowIsCountedOnePixelTooFar) {
  AlphaMask left(10, 10);
  left.eraseLine({0.0, -5.0}, {0.0, 15.0}, 2.0);  // the first column alone
  EXPECT_DOUBLE_EQ(left.clearedRatio(), 0.19);
  AlphaMask right(10, 10);
  right.eraseLine({10.0, -5.0}, {10.0, 15.0}, 2.0);
  EXPECT_DOUBLE_EQ(right.clearedRatio(), 0.1);
  AlphaMask all(10, 10);
  all.eraseLine({5.0, 5.0}, {5.0, 5.0}, 40.0);
  EXPECT_EQ(all.clearedRatio(), 1.0);
  EXPECT_EQ(AlphaMask().clearedRatio(), 0.0);
}

class ScratchLotteryTest : public RenderedPage {
 protected:
  std::shared_ptr<ScratchLotteryView> card(const std::string& state, bool isScratchable) {
    auto json = block("scratch_lottery");
    json["state"] = state;
    json["scratchable"] = isScratchable;
    auto view = render<ScratchLotteryView>("scratch_lottery", json);
    view->scratchMaskView->setSize({350.0, 80.0});
    return view;
  }
  /// Moves to and fro along the card, then runs the measurements.
  void scratch(ScratchLotteryView& view, int moves) {
    for (int i = 0; i < moves; ++i) view.touchesMoved({i % 2 == 0 ? 340.0 : 10.0, 40.0});
    platform_.loop->run();
  }
  static bool isHidden(const ScratchLotteryView& view) {
    return view.scratchMaskView->state.value().isHidden;
  }
};

TEST_F(ScratchLotteryTest, ACardIsLaidOpenAtTheMeasurementThatFindsAFifthGone) {
  const auto view = card("idle", true);
  EXPECT_EQ(view->content.result, "커피 쿠폰 당첨");
  EXPECT_EQ(view->accessibilityLabel(), "스크래치 복권, 누르면 결과가 나옵니다");
  view->touchesBegan({10.0, 40.0});
  EXPECT_EQ(view->scratchMaskView->mask()->clearedRatio(), 0.0);
  scratch(*view, 9);
  EXPECT_GT(view->scratchMaskView->mask()->clearedRatio(), 0.3);
  EXPECT_FALSE(isHidden(*view));
  scratch(*view, 1);
  EXPECT_TRUE(isHidden(*view));
  EXPECT_THAT(requests_->lines, ElementsAre("participate /campaigns/c-modular-3/scratched"));
  EXPECT_THAT(reports_->names, ElementsAre(scratchEnd));
  EXPECT_EQ(view->accessibilityLabel(), "스크래치 복권, 결과: 커피 쿠폰 당첨");
  scratch(*view, 20);
  view->press();
  EXPECT_EQ(requests_->lines.size(), 1U);
}

TEST_F(ScratchLotteryTest, EveryTenthMoveIsMeasuredBeforeItErases) {
  const auto view = card("idle", true);
  view->touchesBegan({10.0, 40.0});
  for (int i = 0; i < 9; ++i) view->touchesMoved({10.0, 40.0});
  EXPECT_EQ(platform_.loop->pending(), 0U);
  view->touchesMoved({340.0, 40.0});  // this move alone clears enough
  EXPECT_EQ(platform_.loop->pending(), 1U);
  platform_.loop->run();
  EXPECT_FALSE(isHidden(*view));
  for (int i = 0; i < 20; ++i) view->touchesMoved({340.0, 40.0});  // two measurements at once
  EXPECT_EQ(platform_.loop->pending(), 2U);
  platform_.loop->run();
  EXPECT_TRUE(isHidden(*view));
  EXPECT_EQ(requests_->lines.size(), 1U);
}

TEST_F(ScratchLotteryTest, AFifthIsEnoughAndIsReportedWithoutAListenerToo) {
  ScratchLotteryComponent card(JsonParser().parse(block("scratch_lottery").dump()).objectValue());
  card.didScratch(0.19999);
  card.didScratch(std::nan(""));
  EXPECT_THAT(reports_->names, IsEmpty());
  for (int i = 0; i < 2; ++i) card.didScratch(0.2);
  EXPECT_THAT(reports_->names, ElementsAre(scratchEnd));
}

TEST_F(ScratchLotteryTest, APressLaysTheCardOpen) {
  const auto view = card("idle", true);
  EXPECT_TRUE(view->isPressable());
  view->press();
  EXPECT_TRUE(isHidden(*view));
  EXPECT_FALSE(view->isPressable());
  view->press();
  EXPECT_THAT(requests_->lines, ElementsAre("participate /campaigns/c-modular-3/scratched"));
}

TEST_F(ScratchLotteryTest, ABlockedCardSendsTheUserElsewhereAtEachReportOfAPan) {
  const auto view = card("idle", false);
  EXPECT_FALSE(view->scratchMaskView->state.value().isUserInteractionEnabled);
  view->touchesMoved({100.0, 40.0});
  view->touchesBegan({100.0, 40.0});
  view->touchesMoved({106.0, 40.0});
  view->touchesEnded();  // a tap
  EXPECT_THAT(requests_->lines, IsEmpty());
  view->touchesBegan({100.0, 40.0});
  for (const double x : {105.0, 110.0, 104.0}) view->touchesMoved({x, 40.0});
  view->touchesEnded();
  const std::string request = "participate /campaigns/c-modular-3/blocked";
  EXPECT_THAT(requests_->lines, ElementsAre(request, request, request));
  EXPECT_THAT(reports_->names, ElementsAre(scratchBlock, scratchBlock, scratchBlock));
  view->press();
  EXPECT_EQ(requests_->lines.size(), 4U);
  EXPECT_FALSE(isHidden(*view));
  EXPECT_EQ(view->accessibilityLabel(), "스크래치 복권");
  EXPECT_EQ(view->scratchMaskView->mask()->clearedRatio(), 0.0);
}

TEST_F(ScratchLotteryTest, AnOpenCardReactsToNothing) {
  for (const bool isScratchable : {true, false}) {
    const auto view = card("done", isScratchable);
    EXPECT_TRUE(isHidden(*view));
    EXPECT_FALSE(view->isPressable());
    view->touchesBegan({10.0, 40.0});
    scratch(*view, 30);
    view->touchesEnded();
    view->press();
    EXPECT_EQ(view->accessibilityLabel(), "스크래치 복권, 결과: 커피 쿠폰 당첨");
  }
  EXPECT_THAT(requests_->lines, IsEmpty());
  EXPECT_THAT(reports_->names, IsEmpty());
}

TEST_F(ScratchLotteryTest, OnlyWhatWasTouchedIsUploadedAndWhatIsGoneStaysGone) {
  platform_.application->setScreenScale(4.0);
  const auto view = card("idle", true);
  auto& mask = *view->scratchMaskView;
  EXPECT_EQ(mask.takeTouched(), (PixelRect{0, 0, 1050, 240}));  // at three pixels to a point, no more
  view->touchesBegan({50.0, 40.0});
  view->touchesMoved({60.0, 40.0});
  view->touchesMoved({70.0, 40.0});
  // The line and 17.5 points around it.
  EXPECT_EQ(mask.takeTouched(), (PixelRect{97, 67, 166, 106}));
  EXPECT_TRUE(mask.takeTouched().isEmpty());
  const double gone = mask.mask()->clearedRatio();
  mask.setSize({700.0, 160.0});
  EXPECT_EQ(mask.takeTouched(), (PixelRect{0, 0, 2100, 480}));
  EXPECT_NEAR(mask.mask()->clearedRatio(), gone, 0.001);
  mask.setSize({5000.0, 80.0});
  EXPECT_EQ(mask.takeTouched(), (PixelRect{0, 0, 4096, 66}));
  mask.setSize({0.0, 80.0});
  EXPECT_EQ(mask.mask(), nullptr);
  scratch(*view, 10);
  EXPECT_FALSE(isHidden(*view));
}

}  // namespace
}  // namespace orrelo::test
