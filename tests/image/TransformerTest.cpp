#include "image/ImageTransforming.h"
#include "support/PlainImageCodec.h"

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

ImagePtr image(int width, int height, std::vector<std::uint8_t> pixels) {
  Bitmap bitmap{width, height, 2.0, {}};
  EXPECT_EQ(pixels.size(), bitmap.size());
  const auto kept = std::make_shared<std::vector<std::uint8_t>>(std::move(pixels));
  bitmap.pixels = {kept, kept->data()};
  return std::make_shared<const Image>(Image{bitmap, makeData("file")});
}

/// All four channels of a pixel have one value.
ImagePtr greys(int width, int height, const std::vector<std::uint8_t>& values) {
  std::vector<std::uint8_t> pixels;
  for (const auto value : values) pixels.insert(pixels.end(), 4, value);
  return image(width, height, std::move(pixels));
}

std::vector<int> greysOf(const Image& image) {
  std::vector<int> values;
  for (std::size_t i = 0; i < image.bitmap.size(); i += 4) values.push_back(image.bitmap.pixels.get()[i]);
  return values;
}

ImagePtr fitted(const ImagePtr& image, double width, double height) {
  return DownsamplingImageTransformer({width, height}).transform(image);
}

TEST(DownsamplingTest, APixelIsTheMeanOfWhatItCovers) {
  const auto halved = fitted(greys(4, 2, {0, 100, 200, 40, 20, 80, 0, 0}), 2, 1);
  EXPECT_THAT(greysOf(*halved), ElementsAre(50, 60));
  EXPECT_EQ(halved->width(), 1.0);
  EXPECT_FALSE(halved->encoded);
  EXPECT_THAT(greysOf(*fitted(greys(3, 3, {90, 0, 0, 0, 0, 0, 0, 0, 0}), 2, 2)), ElementsAre(40, 0, 0, 0));
  const auto colours = fitted(image(2, 1, {200, 0, 10, 255, 0, 100, 0, 0}), 1, 1);
  EXPECT_THAT(std::vector<int>(colours->bitmap.pixels.get(), colours->bitmap.pixels.get() + 4),
              ElementsAre(100, 50, 5, 128));
}

TEST(DownsamplingTest, ProportionsStayAndNothingGrows) {
  const auto wide = greys(40, 10, std::vector<std::uint8_t>(400, 9));
  const auto size = [&](double width, double height) {
    const auto result = fitted(wide, width, height);
    return result ? std::pair(result->bitmap.width, result->bitmap.height) : std::pair(0, 0);
  };
  EXPECT_EQ(size(20, 20), std::pair(20, 5));
  EXPECT_EQ(size(20, 2), std::pair(8, 2));
  EXPECT_EQ(size(13.4, 100), std::pair(13, 3));
  EXPECT_EQ(fitted(wide, 40, 11), wide);
  EXPECT_EQ(fitted(wide, 400, 400), wide);
  for (const auto empty : {0.0, -1.0, std::nan("")}) EXPECT_EQ(size(empty, 20), std::pair(0, 0));
}

TEST(ComposedTransformerTest, TheSecondWorksOnTheResultOfTheFirst) {
  const auto to = [](double side) {
    return std::make_shared<DownsamplingImageTransformer>(Size{side, side});
  };
  const auto both = composed(to(4), to(2));
  EXPECT_EQ(both->identifier(),
            "com.velmark.DownsamplingImageTransformer@(4.0, 4.0)"
            "com.velmark.DownsamplingImageTransformer@(2.0, 2.0)");
  const auto source = greys(8, 8, std::vector<std::uint8_t>(64, 9));
  EXPECT_EQ(both->transform(source)->bitmap.width, 2);
  EXPECT_FALSE(composed(to(0), to(2))->transform(source));
  EXPECT_FALSE(composed(to(4), to(0))->transform(source));
}

}  // namespace
}  // namespace orrelo::test
