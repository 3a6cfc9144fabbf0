#include "base/Color.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {
namespace {

TEST(ColorTest, ReadsHexTexts) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"#FF0000", "#ff0000"},  {"ff0000", "#ff0000"},  {" \t\r\n#Ff0000\v\f ", "#ff0000"},
      {"#FFF", "#000fff"},  // a number, no short form
      {"0xFFFF", "#00ffff"},   {"12G456", "#000012"},  {"#GGGGGG", "#000000"},
      {"#FF00000", "#000000"}, {"##FFFFF", "#000000"}, {"", "#000000"},
      {"ABCDEF포", "#000000"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(Color::fromHex(text).hexText(), expected) << '"' << text << '"';
    EXPECT_EQ(Color::fromHex(text).alpha, 1.0) << text;
  }
  EXPECT_EQ(Color::fromHex("#FF8000"), (Color{1.0, 128 / 255.0, 0.0, 1.0}));
  EXPECT_EQ((Color{1.0, 0.5, 0.0, 0.6}).hexText(), "#ff7f00") << "truncated, without alpha";
  EXPECT_EQ(Color::fromHex("\xC2\xA0#FF0000\xE3\x80\x80").hexText(), "#ff0000");  // blanks beyond ASCII
}

TEST(ColorTest, EveryComponentSurvivesARoundTrip) {
  for (int value = 0; value < 256; ++value) {
    const Color color{value / 255.0, (255 - value) / 255.0, value / 255.0, 1.0};
    EXPECT_EQ(Color::fromHex(color.hexText()), color) << value;
  }
}

TEST(ColorDeathTest, AComponentThatIsNotFiniteStopsTheProcess) {
  for (const double component : {std::nan(""), 1e300}) {
    EXPECT_DEATH((Color{0.0, component, 0.0, 1.0}).hexText(), "colour component");
  }
}

}  // namespace
}  // namespace orrelo::test
