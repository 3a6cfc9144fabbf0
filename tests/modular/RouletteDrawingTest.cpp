#include "modular/roulette/RouletteDrawing.h"

#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

constexpr Color primary{0.2, 0.3, 0.4, 1.0};
constexpr Color secondary{0.5, 0.6, 0.7, 1.0};
constexpr Color white{1.0, 1.0, 1.0, 1.0};

RouletteDrawing drawingOf(const std::vector<RouletteItemModel>& items) {
  return RouletteDrawing::of(items, {primary, secondary, true}, {280.0, 280.0});
}

Position middleOf(const Rect& frame) {
  return {frame.x + frame.width / 2, frame.y + frame.height / 2};
}

TEST(RouletteDrawingTest, SectorsGoRoundAndTheirTextsStandUprightUnderThePin) {
  const auto wheel = drawingOf({{"쿠폰", "커피", primary}, {"", "꽝", white}}).wheel;
  const Position center{140.0, 140.0};
  ASSERT_EQ(wheel.sectors.size(), 2U);
  EXPECT_EQ(wheel.sectors[0], (RouletteDrawing::Sector{center, 115.0, 0.0, 180.0, {0.2, 0.3, 0.4, 0.3}}));
  EXPECT_EQ(wheel.sectors[1], (RouletteDrawing::Sector{center, 115.0, 180.0, 360.0, {1.0, 1.0, 1.0, 0.3}}));
  ASSERT_EQ(wheel.texts.size(), 4U);
  const auto& title = wheel.texts[0];
  EXPECT_EQ(title.text, "쿠폰");
  EXPECT_EQ(title.rotation, -180.0);
  EXPECT_NEAR(middleOf(title.frame).x, 140.0, 1e-9);
  EXPECT_NEAR(middleOf(title.frame).y, 140.0 + 64.125, 1e-9);
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
  EXPECT_LT(texts[3].style.size, texts[1].style.size);
  EXPECT_EQ(texts[5].style.size, texts[1].style.size) << "five characters as a reader counts them";
}

}  // namespace
}  // namespace orrelo::test
