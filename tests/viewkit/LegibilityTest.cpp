#include "viewkit/legibility.h"

#include <gmock/gmock.h>
#include <limits>

namespace orrelo::test {
namespace {

constexpr Color white{1.0, 1.0, 1.0, 1.0};

TEST(Legibility, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(contrastToWhite(white), 1.0, 1e-9);
  EXPECT_NEAR(contrastToWhite(Color{0.0, 0.0, 0.0, 1.0}), 21.0, 1e-9);
  EXPECT_NEAR(contrastToWhite(Color::fromHex("#767676")), 4.54, 0.005);
  const double none = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(contrastToWhite(Color{none, -1.0, 7.0, 1.0}), contrastToWhite(Color{0.0, 0.0, 1.0, 1.0}));
}

TEST(Legibility, TextOnAColourIsWhiteWhereItCanBeRead) {
  EXPECT_EQ(textColorOn(Color::fromHex("#1290ff")), white);
  EXPECT_EQ(textColorOn(Color::fromHex("#ffe000")), plainTextColor);
  EXPECT_EQ(buttonTextColor(Color::fromHex("#ffe000"), true), plainTextColor);
  EXPECT_EQ(buttonTextColor(Color::fromHex("#1290ff"), false), disabledTextColor);
}

TEST(Legibility, AColourOnWhiteIsDarkenedNoFurtherThanItMust) {
  const auto blue = Color::fromHex("#1290ff");
  EXPECT_EQ(legibleOnWhite(blue), blue);
  for (const auto* const hex : {"#ffe000", "#ffffff", "#00ff88"}) {
    const auto legible = legibleOnWhite(Color::fromHex(hex));
    EXPECT_GE(contrastToWhite(legible), 3.0) << hex;
    EXPECT_LT(contrastToWhite(legible), 3.4) << hex;
  }
}

TEST(Legibility, ADisabledButtonIsPaleAndKeepsItsTint) {
  const auto fill = buttonFill(Color{1.0, 0.0, 0.0, 0.5}, false);
  EXPECT_NEAR(fill.red, 0.936, 1e-9);
  EXPECT_NEAR(fill.green, 0.736, 1e-9);
  EXPECT_EQ(fill.alpha, 0.5);
  EXPECT_EQ(buttonFill(Color{0.3, 0.2, 0.1, 1.0}, true), (Color{0.3, 0.2, 0.1, 1.0}));
}

}  // namespace
}  // namespace orrelo::test
