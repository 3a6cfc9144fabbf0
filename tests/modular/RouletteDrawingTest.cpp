#include "modular/roulette/RouletteDrawing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace orrelo::test {
namespace {

constexpr Color primary{0.2, 0.3, 0.4, 1.0};
constexpr Color secondary{0.5, 0.6, 0.7, 1.0};
constexpr Color white{1.0, 1.0, 1.0, 1.0};

RouletteDrawing drawingOf(const std::vector<RouletteItemModel>& items, bool isEnabled = true,
                          Size size = {280.0, 280.0}) {
  return RouletteDrawing::of(items, {primary, secondary, isEnabled}, size);
}

Point middleOf(const Rect& frame) {
  return {frame.x + frame.width / 2, frame.y + frame.height / 2};
}

TEST(RouletteDrawingTest, ARimADotAndAPinStandStill) {
  const auto drawing = drawingOf({});
  const Point center{140.0, 140.0};
  EXPECT_EQ(drawing.rim[0], (RouletteDrawing::Disc{center, 135.0, secondary}));
  EXPECT_EQ(drawing.rim[1], (RouletteDrawing::Disc{center, 115.0, {0.945, 0.949, 0.953, 1.0}}));
  EXPECT_EQ(drawing.rim[2], (RouletteDrawing::Disc{center, 105.0, white}));
  EXPECT_EQ(drawing.centerDot, (RouletteDrawing::Disc{center, 6.0, primary}));
  EXPECT_EQ(drawing.wheel, RouletteDrawing::Wheel());
  EXPECT_FALSE(drawing.veil);
  const auto narrow = drawingOf({}, true, {280.0, 100.0});
  EXPECT_EQ(narrow.rim[0].radius, 45.0);
  EXPECT_EQ(drawingOf({}, true, {20.0, 20.0}).rim[1].radius, 0.0);
}

TEST(RouletteDrawingTest, ThePinsCornersAreRoundAndItsSidesStraight) {
  const auto pin = drawingOf({}).pin;
  EXPECT_EQ(pin.color, primary);
  double turned = 0.0;
  for (const auto& corner : pin.corners) {
    EXPECT_EQ(corner.radius, 3.0);
    turned += corner.sweep;
  }
  EXPECT_NEAR(turned, -360.0, 1e-9);
  const auto end = [](const RouletteDrawing::Arc& arc, double sweep) {
    const double angle = (arc.startAngle + sweep) * std::numbers::pi / 180.0;
    return Point{arc.center.x + arc.radius * std::cos(angle), arc.center.y + arc.radius * std::sin(angle)};
  };
  // The tip is in the middle, a little less deep for being round; the upper side lies on the edge.
  EXPECT_NEAR(pin.corners[0].center.x, 140.0, 1e-9);
  EXPECT_NEAR(pin.corners[0].center.y, 35.0 - 3.0 / std::sin(std::atan2(15.0, 35.0)), 1e-9);
  EXPECT_NEAR(end(pin.corners[1], pin.corners[1].sweep).y, 0.0, 1e-9);
  EXPECT_NEAR(end(pin.corners[2], 0.0).y, 0.0, 1e-9);
  EXPECT_GT(end(pin.corners[1], pin.corners[1].sweep).x, end(pin.corners[2], 0.0).x);
  // The left side leads from the corner above to the tip.
  const auto above = end(pin.corners[2], pin.corners[2].sweep);
  const auto below = end(pin.corners[0], 0.0);
  EXPECT_NEAR((below.x - above.x) / (below.y - above.y), 15.0 / 35.0, 1e-9);
}

TEST(RouletteDrawingTest, SectorsGoRoundAndTheirTextsStandUprightUnderThePin) {
  const auto wheel = drawingOf({{"쿠폰", "커피", primary}, {"", "꽝", white}}).wheel;
  const Point center{140.0, 140.0};
  ASSERT_EQ(wheel.sectors.size(), 2U);
  EXPECT_EQ(wheel.sectors[0], (RouletteDrawing::Sector{center, 115.0, 0.0, 180.0, {0.2, 0.3, 0.4, 0.3}}));
  EXPECT_EQ(wheel.sectors[1], (RouletteDrawing::Sector{center, 115.0, 180.0, 360.0, {1.0, 1.0, 1.0, 0.3}}));
  ASSERT_EQ(wheel.texts.size(), 4U);
  const auto& title = wheel.texts[0];
  EXPECT_EQ(title.text, "쿠폰");
  EXPECT_EQ(title.rotation, -180.0);
  EXPECT_EQ(title.style, (TextStyle{.size = 14.0, .color = {0.363, 0.369, 0.375, 1.0}}));
  EXPECT_NEAR(middleOf(title.frame).x, 140.0, 1e-9);
  EXPECT_NEAR(middleOf(title.frame).y, 140.0 + 64.125, 1e-9);
  EXPECT_DOUBLE_EQ(title.frame.width, 115.0 * std::numbers::pi);
  EXPECT_EQ(title.frame.height, 57.5);
  const auto& body = wheel.texts[3];
  EXPECT_EQ(body.text, "꽝");
  EXPECT_EQ(body.rotation, 0.0);
  EXPECT_NEAR(middleOf(body.frame).y, 140.0 - 135.0 * 0.325, 1e-9);
}

TEST(RouletteDrawingTest, ALongBodyIsSmaller) {
  const auto texts =
      drawingOf({{"", "아이스크림", primary},
                 {"", "아이스크림콘", white},
                 {"", "👨‍👩‍👧‍👦👩🏽‍🚀🇰🇷❤️e\u0301", primary}})
          .wheel.texts;
  EXPECT_EQ(texts[1].style, (TextStyle{16.0, TextStyle::Weight::semibold, {0.363, 0.369, 0.375, 1.0}}));
  EXPECT_EQ(texts[3].style.size, 11.0);
  EXPECT_EQ(texts[5].style.size, 16.0) << "five, as they are seen";
}

TEST(RouletteDrawingTest, AWheelThatIsNotEnabledLiesUnderAVeilThatSaysWhy) {
  const auto veil = drawingOf({}, false).veil;
  ASSERT_TRUE(veil);
  EXPECT_EQ(veil->disc, (RouletteDrawing::Disc{{140.0, 140.0}, 115.0, {0.239, 0.243, 0.247, 0.5}}));
  EXPECT_EQ(
      veil->text,
      (RouletteDrawing::Text{
          "이벤트 참여 완료", {65.0, 130.0, 150.0, 20.0}, 0.0, {18.0, TextStyle::Weight::bold, white}}));
}

}  // namespace
}  // namespace orrelo::test
