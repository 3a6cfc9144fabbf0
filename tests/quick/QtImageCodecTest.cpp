#include "quick/platform/QtImageCodec.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageWriter>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using quick::QtImageCodec;

/// The left half is red, the right half a half-transparent green.
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

/// Red, green, blue and alpha.
std::vector<int> pixel(const Bitmap& bitmap, int x, int y) {
  QRgb color = 0;
  std::memcpy(&color, bitmap.pixels.get() + std::ptrdiff_t{4} * (y * bitmap.width + x), sizeof(color));
  return {qRed(color), qGreen(color), qBlue(color), qAlpha(color)};
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

std::string chunk(const std::string& name, const std::string& data) {
  const auto typeAndData = name + data;
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char c : typeAndData) {
    sum ^= static_cast<unsigned char>(c);
    for (int i = 0; i < 8; ++i) sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return bigEndian(static_cast<std::uint32_t>(typeAndData.size() - 4)) + typeAndData + bigEndian(~sum);
}

/// `png` with a header that states another size and depth.
std::string claiming(std::string png, std::uint32_t width, std::uint32_t height, char depth = 8) {
  const auto header = chunk("IHDR", bigEndian(width) + bigEndian(height) + std::string{depth, 6, 0, 0, 0});
  return png.replace(8, header.size(), header);
}

std::string bytesOf(std::initializer_list<int> numbers) {
  return {numbers.begin(), numbers.end()};
}

/// A grey square as a progressive JPEG: one scan with the picture, and `more` empty ones. All codes are
/// zeros.
std::string progressiveJpeg(int side, int more, const std::vector<int>& sampling = {0x11}) {
  const auto segment = [](int mark, const std::string& data) {
    const auto size = static_cast<int>(data.size()) + 2;
    return bytesOf({0xFF, mark, size >> 8, size & 0xFF}) + data;
  };
  const auto table = [](int kind, int symbol) {
    return bytesOf({kind, 1}) + std::string(15, '\0') + bytesOf({symbol});
  };
  const int count = static_cast<int>(sampling.size());
  auto frame = bytesOf({8, side >> 8, side & 0xFF, side >> 8, side & 0xFF, count});
  auto scan = bytesOf({count});
  for (int i = 0; i < count; ++i) {
    frame += bytesOf({i + 1, sampling[static_cast<std::size_t>(i)], 0});
    scan += bytesOf({i + 1, 0});
  }
  const auto blocks =
      static_cast<std::size_t>(side / 8) * static_cast<std::size_t>(side / 8) * sampling.size();
  auto file = bytesOf({0xFF, 0xD8}) + segment(0xDB, '\0' + std::string(64, '\1')) + segment(0xC2, frame) +
              segment(0xC4, table(0x00, 0x00)) + segment(0xC4, table(0x10, 0xE0)) +
              segment(0xDA, scan + std::string(3, '\0')) + std::string(blocks / 8 + 1, '\0');
  for (int i = 0; i < more; ++i) {
    file += segment(0xDA, bytesOf({1, 1, 0, 1, 63, 0})) + std::string(blocks / 8192 + 2, '\0');
  }
  return file + bytesOf({0xFF, 0xD9});
}

std::string littleEndian(std::size_t number, int size) {
  std::string bytes;
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

std::string webpChunk(const std::string& name, const std::string& data) {
  return name + littleEndian(data.size(), 4) + data + std::string(data.size() % 2, '\0');
}

std::string webp(const std::string& chunks) {
  return "RIFF" + littleEndian(chunks.size() + 4, 4) + "WEBP" + chunks;
}

/// A square of one colour.
std::string losslessWebp(int side) {
  std::vector<bool> bits;
  const auto put = [&](int value, int count) {
    for (int i = 0; i < count; ++i) bits.push_back((value >> i & 1) != 0);
  };
  put(side - 1, 14);
  put(side - 1, 14);
  put(1, 4);  // has alpha, version 0
  put(0, 3);  // no transform, no colour cache, one group of codes
  for (const int symbol : {50, 200, 30, 100, 0}) {
    put(0b101, 3);  // one symbol of eight bits
    put(symbol, 8);
  }
  std::string data = "\x2F" + std::string(bits.size() / 8 + 5, '\0');
  for (std::size_t i = 0; i < bits.size(); ++i) {
    if (bits[i]) data[1 + i / 8] = static_cast<char>(data[1 + i / 8] | 1 << (i % 8));
  }
  return webpChunk("VP8L", data);
}

std::string webpCanvas(int flags, int side) {
  return webpChunk("VP8X", bytesOf({flags, 0, 0, 0}) + littleEndian(static_cast<std::size_t>(side - 1), 3) +
                               littleEndian(static_cast<std::size_t>(side - 1), 3));
}

std::string movingWebp(int side) {
  const auto last = littleEndian(static_cast<std::size_t>(side - 1), 3);
  const auto frame =
      webpChunk("ANMF", std::string(6, '\0') + last + last + std::string(4, '\1') + losslessWebp(side));
  return webp(webpCanvas(0x12, side) + webpChunk("ANIM", std::string(6, '\0')) + frame + frame);
}

/// The growth of the process's peak memory since construction, in MiB.
class Peak {
 public:
  Peak() {
    std::ofstream("/proc/self/clear_refs") << "5";
    before_ = mebibytes();
  }
  long growth() const { return mebibytes() - before_; }

 private:
  static long mebibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("VmHWM:")) return std::stol(line.substr(6)) / 1024;
    }
    ADD_FAILURE() << "no VmHWM";
    return 0;
  }

  long before_ = 0;
};

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
    EXPECT_THAT(pixel(*bitmap, 2, 29), near({255, 0, 0, 255})) << format;
    EXPECT_THAT(pixel(*bitmap, 37, 0),
                near(hasAlpha ? std::vector{0, 128, 0, 128} : std::vector{0, 255, 0, 255}))
        << format;
  }
}

TEST_F(QtImageCodecTest, AnEncodedPictureReadsBack) {
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

TEST_F(QtImageCodecTest, ATruncatedFileIsNoPicture) {
  for (const auto* const format : {"png", "webp", "jpeg"}) {
    const auto whole = file(picture(200, 200).convertToFormat(QImage::Format_RGB32), format);
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{20}, whole.size() / 2, whole.size() * 3 / 4}) {
      EXPECT_FALSE(codec_.decode(whole.substr(0, length))) << format << " " << length;
    }
  }
}

TEST_F(QtImageCodecTest, AFileWithAnotherFormatsSignatureIsNoPicture) {
  const auto png = file(picture(), "png");
  const auto jpeg = file(picture(), "jpeg");
  EXPECT_FALSE(codec_.decode(png.substr(0, 8) + jpeg));
  EXPECT_FALSE(codec_.decode("\xFF\xD8\xFF" + png));
  EXPECT_FALSE(codec_.decode("RIFF" + std::string(4, '\0') + "WEBP" + png));
  EXPECT_FALSE(codec_.decode(file(picture(), "bmp")));
  EXPECT_FALSE(codec_.decode(R"(<svg xmlns="http://www.w3.org/2000/svg" width="9" height="9"/>)"));
  EXPECT_FALSE(codec_.decode("<html>404</html>"));
}

TEST_F(QtImageCodecTest, APictureThatIsTooLargeIsRefusedByItsHeader) {
  const auto wide = file(QImage(20'000, 10, QImage::Format_Grayscale8), "png");
  const auto jpeg = file(QImage(20'000, 10, QImage::Format_Grayscale8), "jpeg");
  const auto small = file(picture(), "png");
  const Peak peak;
  for (const auto& bytes : {wide, jpeg, claiming(small, 0x7FFFFFFF, 0x7FFFFFFF), claiming(small, 16'385, 1),
                            claiming(small, 4096, 4097), claiming(small, 4096, 4096, 16),
                            webp(losslessWebp(4097)), movingWebp(5700)}) {
    EXPECT_FALSE(codec_.decode(bytes));
  }
  EXPECT_LE(peak.growth(), 8);
}

TEST_F(QtImageCodecTest, TheLargestPictureTakesNoMoreMemoryThanIsStated) {
  const auto plain = [](int width, int height, const char* format) {
    QImage largest(width, height, QImage::Format_Grayscale8);
    largest.fill(7);
    return file(largest, format);
  };
  for (const auto& bytes : {plain(4096, 4096, "png"), plain(1024, 16'384, "png"), plain(16'384, 1024, "jpeg"),
                            progressiveJpeg(4096, 1, {0x11}), progressiveJpeg(4096, 1, {0x22, 0x11, 0x11}),
                            webp(losslessWebp(4096))}) {
    const Peak peak;
    const auto bitmap = codec_.decode(bytes);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(bitmap->size(), std::size_t{64} * 1024 * 1024);
    EXPECT_GE(peak.growth(), 48);  // less than 64, as freed memory is reused
    EXPECT_LE(peak.growth(), 128 + 16);
  }
  // The scans and the pixels would take 160 MiB, or 192 with a fourth component.
  const Peak peak;
  EXPECT_FALSE(codec_.decode(progressiveJpeg(4096, 1, {0x11, 0x11, 0x11})));
  EXPECT_FALSE(codec_.decode(progressiveJpeg(4096, 1, {0x11, 0x11, 0x11, 0x11})));
  EXPECT_LE(peak.growth(), 8);
}

TEST_F(QtImageCodecTest, TextsAndProfilesAreNotUnpacked) {
  const auto png = file(picture(), "png");
  const auto large = qCompress(QByteArray(7'900'000, 'a'), 9).mid(4).toStdString();
  const auto header = png.substr(0, 33);
  auto bomb = header + chunk("iCCP", std::string("k\0\0", 3) + large);
  for (int i = 0; i < 20; ++i) bomb += chunk("zTXt", "k" + std::to_string(i) + std::string(2, '\0') + large);
  auto jpeg = file(picture().convertToFormat(QImage::Format_RGB32), "jpeg");
  std::string comments;
  for (int i = 0; i < 100; ++i) comments += "\xFF\xFE\xFF\xFF" + std::string(0xFFFD, 'a');
  jpeg.insert(2, comments);
  bomb += png.substr(33);
  const Peak peak;
  const auto bitmap = codec_.decode(bomb);
  ASSERT_TRUE(bitmap);
  EXPECT_THAT(pixel(*bitmap, 2, 29), near({255, 0, 0, 255}));
  EXPECT_TRUE(codec_.decode(jpeg));
  EXPECT_LE(peak.growth(), 6) << "one unpacked text takes more";
}

TEST_F(QtImageCodecTest, AJpegHasAHundredScansAtMost) {
  EXPECT_TRUE(codec_.decode(progressiveJpeg(64, 99)));
  EXPECT_FALSE(codec_.decode(progressiveJpeg(64, 100)));
}

TEST_F(QtImageCodecTest, AnAnimatedWebpIsNoPicture) {
  EXPECT_TRUE(codec_.decode(webp(losslessWebp(16))));
  EXPECT_FALSE(codec_.decode(movingWebp(16)));
  // The canvas is small, the picture in it large.
  EXPECT_FALSE(codec_.decode(webp(webpCanvas(0x10, 10) + losslessWebp(4096))));
}

}  // namespace
}  // namespace orrelo::test
