#include "quick/platform/QtImageCodec.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using quick::QtImageCodec;

// A red left half and a half-transparent green right one.
QImage picture(int width = 40, int height = 30) {
  QImage image(width, height, QImage::Format_ARGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      image.setPixel(x, y, x < width / 2 ? qRgba(255, 0, 0, 255) : qRgba(0, 255, 0, 128));
    }
  }
  return image;
}

std::string file(const QImage& image, const char* format, QImageIOHandler::Transformations turned = {}) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(100);
  writer.setTransformation(turned);
  EXPECT_TRUE(writer.write(image)) << format;
  return buffer.data().toStdString();
}

std::vector<int> pixel(const Bitmap& bitmap, int x, int y) {
  const auto* const bytes = bitmap.pixels.get() + std::ptrdiff_t{4} * (y * bitmap.width + x);
  return {bytes, bytes + 4};
}

auto near(std::vector<int> colour) {
  std::vector<testing::Matcher<int>> each;
  for (const int value : colour)
    each.push_back(testing::AllOf(testing::Ge(value - 4), testing::Le(value + 4)));
  return testing::ElementsAreArray(each);
}

std::string bigEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
  return bytes;
}

std::string withChecksum(const std::string& typeAndData) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char c : typeAndData) {
    sum ^= static_cast<unsigned char>(c);
    for (int i = 0; i < 8; ++i) sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return bigEndian(static_cast<std::uint32_t>(typeAndData.size() - 4)) + typeAndData + bigEndian(~sum);
}

// `png` with a header that claims another size and depth.
std::string claiming(std::string png, std::uint32_t width, std::uint32_t height, char depth = 8) {
  auto header = "IHDR" + bigEndian(width) + bigEndian(height);
  header += {depth, 6, 0, 0, 0};
  const auto chunk = withChecksum(header);
  return png.replace(8, chunk.size(), chunk);
}

// The most memory that the process has ever had.
long peakMebibytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6)) / 1024;
  }
  return 0;
}

class QtImageCodecTest : public testing::Test {
 protected:
  QtImageCodec codec_;
};

TEST_F(QtImageCodecTest, ReadsEachFormatByItsBytes) {
  for (const auto* const format : {"png", "webp", "jpeg"}) {
    const bool hasAlpha = std::string(format) != "jpeg";
    const auto bitmap =
        codec_.decode(file(hasAlpha ? picture() : picture().convertToFormat(QImage::Format_RGB32), format));
    ASSERT_TRUE(bitmap) << format;
    EXPECT_EQ(bitmap->width, 40);
    EXPECT_EQ(bitmap->height, 30);
    EXPECT_EQ(bitmap->scale, 1.0);
    EXPECT_THAT(pixel(*bitmap, 2, 29), near({255, 0, 0, 255})) << format;
    EXPECT_THAT(pixel(*bitmap, 37, 0),
                near(hasAlpha ? std::vector{0, 128, 0, 128} : std::vector{0, 255, 0, 255}))
        << format;
  }
}

TEST_F(QtImageCodecTest, WhatItWritesItReadsBack) {
  const auto bitmap = codec_.decode(file(picture(7, 5), "webp"));
  ASSERT_TRUE(bitmap);
  const auto png = codec_.encode(*bitmap);
  ASSERT_TRUE(png);
  EXPECT_TRUE(png->starts_with("\x89PNG"));
  const auto again = codec_.decode(*png);
  ASSERT_TRUE(again);
  EXPECT_EQ(again->width, 7);
  EXPECT_TRUE(std::equal(again->pixels.get(), again->pixels.get() + again->size(), bitmap->pixels.get()));
  EXPECT_FALSE(codec_.encode(Bitmap{}));
}

TEST_F(QtImageCodecTest, TurnsAPhotographUpright) {
  const auto turned = codec_.decode(
      file(picture().convertToFormat(QImage::Format_RGB32), "jpeg", QImageIOHandler::TransformationRotate90));
  ASSERT_TRUE(turned);
  EXPECT_EQ(turned->width, 30);
  EXPECT_EQ(turned->height, 40);
  EXPECT_THAT(pixel(*turned, 15, 2), near({255, 0, 0, 255}));
}

TEST_F(QtImageCodecTest, WhatIsBrokenOffIsNoPicture) {
  for (const auto* const format : {"png", "webp", "jpeg"}) {
    const auto whole = file(picture(200, 200).convertToFormat(QImage::Format_RGB32), format);
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{4}, std::size_t{20}, whole.size() / 2, whole.size() * 3 / 4}) {
      EXPECT_FALSE(codec_.decode(whole.substr(0, length)))
          << format << " " << length << " of " << whole.size();
    }
  }
}

TEST_F(QtImageCodecTest, WhatBearsAnothersMarkIsNoPicture) {
  const auto png = file(picture(), "png");
  const auto jpeg = file(picture(), "jpeg");
  EXPECT_FALSE(codec_.decode(png.substr(0, 8) + jpeg));
  EXPECT_FALSE(codec_.decode("\xFF\xD8\xFF" + png));
  EXPECT_FALSE(codec_.decode("RIFF" + std::string(4, '\0') + "WEBP" + png));
  EXPECT_FALSE(codec_.decode(file(picture(), "bmp")));
  EXPECT_FALSE(codec_.decode(R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)"));
  EXPECT_FALSE(codec_.decode("<html>404</html>"));
}

TEST_F(QtImageCodecTest, WhatIsTooLargeIsRefusedByItsHeader) {
  const auto wide = file(QImage(20'000, 10, QImage::Format_Grayscale8), "png");
  const auto webp = file(QImage(10, 5'000, QImage::Format_RGB32), "webp");
  const auto jpeg = file(QImage(20'000, 10, QImage::Format_Grayscale8), "jpeg");
  const auto small = file(picture(), "png");
  const auto before = peakMebibytes();
  for (const auto& bytes :
       {wide, webp, jpeg, claiming(small, 20'000, 20'000), claiming(small, 0x7FFFFFFF, 0x7FFFFFFF),
        claiming(small, 4097, 1), claiming(small, 4096, 4096, 16)}) {
    EXPECT_FALSE(codec_.decode(bytes));
  }
  EXPECT_LE(peakMebibytes() - before, 8);
}

TEST_F(QtImageCodecTest, TheLargestTakesNoMoreThanIsStated) {
  QImage largest(4096, 4096, QImage::Format_Grayscale8);
  largest.fill(7);
  const auto bytes = file(largest, "png");
  largest = {};
  const auto before = peakMebibytes();
  const auto bitmap = codec_.decode(bytes);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->size(), std::size_t{64} * 1024 * 1024);
  EXPECT_LE(peakMebibytes() - before, 128 + 16);
}

}  // namespace
}  // namespace orrelo::test
