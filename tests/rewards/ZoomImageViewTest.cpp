#include "rewards/gifticon/ZoomImageView.h"
#include "support/TestPlatform.h"

#include <gmock/gmock.h>
#include <limits>

namespace orrelo::test {
namespace {

class ZoomImageViewTest : public testing::Test {
 protected:
  ZoomImageViewTest() { view_->setSize({300.0, 600.0}); }

  void show(int width, int height) {
    view_->setImage(std::make_shared<const Image>(Image{{width, height, 1.0, nullptr}, nullptr}));
  }
  const Rect& frame() const { return view_->frame.value(); }

  TestPlatform platform_;
  std::shared_ptr<ZoomImageView> view_ = std::make_shared<ZoomImageView>();
};

TEST_F(ZoomImageViewTest, FitsTheViewAndStaysInItWhileItIsEnlarged) {
  EXPECT_EQ(frame(), Rect());
  view_->enlarge(2.0, 10.0, 10.0);
  EXPECT_EQ(frame(), Rect()) << "there is nothing to enlarge";
  show(150, 150);
  EXPECT_EQ(frame(), (Rect{0, 150, 300, 300})) << "a small image fills the view too";
  view_->move(50.0, -50.0);
  EXPECT_EQ(frame(), (Rect{0, 150, 300, 300})) << "it has no room to move";
  view_->enlarge(2.0, 0.0, 300.0);
  EXPECT_EQ(frame(), (Rect{0, 0, 600, 600})) << "the left edge stays in its place";
  view_->move(-1000.0, 7.0);
  EXPECT_EQ(frame(), (Rect{-300, 0, 600, 600})) << "up to the right edge, and not where it fits";
  view_->enlarge(100.0, 150.0, 300.0);
  EXPECT_EQ(frame().width, 1200.0) << "at most four times";
  view_->enlarge(0.0, 150.0, 300.0);
  EXPECT_EQ(frame(), (Rect{0, 150, 300, 300}));
  view_->toggle(300.0, 300.0);
  EXPECT_EQ(frame(), (Rect{-450, -75, 750, 750}));
  view_->setSize({600.0, 300.0});
  EXPECT_EQ(frame().width, 750.0);
  view_->toggle(0.0, 0.0);
  EXPECT_EQ(frame(), (Rect{150, 0, 300, 300}));
  view_->toggle(0.0, 0.0);
  show(60, 30);
  EXPECT_EQ(frame(), (Rect{0, 0, 600, 300})) << "another image fits again";
  view_->setImage(nullptr);
  EXPECT_EQ(frame(), Rect());
}

TEST_F(ZoomImageViewTest, ALongImageCanBeReadInItsOwnSize) {
  show(600, 12'000);
  EXPECT_EQ(frame(), (Rect{135, 0, 30, 600}));
  view_->enlarge(1e9, 150.0, 300.0);
  EXPECT_NEAR(frame().width, 600.0, 1e-9);
  view_->turnWheel(-1.0, 150.0, 300.0);
  EXPECT_NEAR(frame().width, 480.0, 1e-9);
}

TEST_F(ZoomImageViewTest, AGestureMovesAndEnlargesFromWhereItBegan) {
  show(300, 600);
  view_->beginGesture(150.0, 300.0);
  view_->continueGesture(3.0, 150.0, 300.0);
  EXPECT_EQ(frame(), (Rect{-300, -600, 900, 1800}));
  view_->continueGesture(2.0, 160.0, 320.0);
  EXPECT_NEAR(frame().width, 600.0, 1e-9) << "against the beginning, not against the last step";
  EXPECT_NEAR(frame().x + frame().width / 2, 160.0, 1e-9);
  EXPECT_NEAR(frame().y + frame().height / 2, 320.0, 1e-9);
  const auto before = frame();
  for (const double odd :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    view_->continueGesture(1.0, odd, 0.0);
    view_->beginGesture(0.0, 0.0);
    view_->enlarge(odd, 0.0, 0.0);
    view_->move(0.0, odd);
  }
  EXPECT_LE(frame().width, 1200.0);
  view_->enlarge(before.width / frame().width, 0.0, 0.0);
  EXPECT_NEAR(frame().width, before.width, 1e-9) << "values that are no places leave no trace";
}

}  // namespace
}  // namespace orrelo::test
