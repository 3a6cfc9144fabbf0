#include "QuickTest.h"
#include "quick/image/PictureTexture.h"

namespace orrelo::test {
namespace {

using quick::PictureTexture;

class PictureTextureTest : public QuickTest {
 protected:
  static ImagePtr image(int width, int height) {
    Bitmap bitmap{width, height, 1.0, {}};
    bitmap.pixels.reset(new std::uint8_t[bitmap.size()]());
    return std::make_shared<const Image>(Image{bitmap, nullptr});
  }
  std::shared_ptr<const PictureTexture> of(const ImagePtr& image, QSize pixels) {
    return PictureTexture::of(*window_, image, pixels);
  }
};

TEST_F(PictureTextureTest, IsOneForAllWhoShowThePictureAsLarge) {
  const auto large = image(1000, 600);
  const auto first = of(large, {60, 36});
  EXPECT_EQ(first->texture()->textureSize(), QSize(63, 38));
  EXPECT_EQ(of(large, {50, 30}), first);
  EXPECT_NE(of(large, {200, 200}), first);
  EXPECT_NE(of(image(1000, 600), {60, 36}), first);
  EXPECT_EQ(of(large, {3000, 3000})->texture()->textureSize(), QSize(1000, 600));
  EXPECT_EQ(of(image(1, 1), {0, 0})->texture()->textureSize(), QSize(1, 1));
}

TEST_F(PictureTextureTest, IsNoLargerThanTheRendererTakes) {
  const QSize tall(1000, 16'384);
  EXPECT_EQ(PictureTexture::sizeOf(tall, {780, 12'780}, 16'384), tall);
  EXPECT_EQ(PictureTexture::sizeOf(tall, {780, 12'780}, 8192), QSize(500, 8192));
  EXPECT_EQ(PictureTexture::sizeOf(tall, {390, 6390}, 8192), QSize(500, 8192)) << "by the size of its item";
  EXPECT_EQ(PictureTexture::sizeOf({16'384, 1}, {390, 1}, 4096), QSize(4096, 1));
  EXPECT_EQ(of(image(16'384, 4), {16'384, 4})->texture()->textureSize(), QSize(16'384, 4));
}

TEST_F(PictureTextureTest, GoesWithTheLastOfThem) {
  auto picture = image(100, 100);
  const std::weak_ptr<const Image> watched = picture;
  auto texture = of(picture, {40, 40});
  picture.reset();
  EXPECT_FALSE(watched.expired());
  texture.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace orrelo::test
