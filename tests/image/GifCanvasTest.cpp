#include "image/GifFiles.h"
#include "image/gif/AnimatedImage.h"
#include "image/gif/GifCanvas.h"

#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

namespace orrelo::test {
namespace {

using testing::ElementsAre;

std::shared_ptr<const GifFile> fileOf(const std::string& bytes) {
  auto file = GifFile::read(makeData(bytes));
  return file ? std::make_shared<const GifFile>(*std::move(file)) : nullptr;
}

std::size_t frameCount(const std::string& bytes) {
  const auto file = fileOf(bytes);
  return file ? file->frames().size() : 0;
}

std::string dataFile(const std::string& name) {
  std::ifstream file(std::string(ORRELO_TEST_DATA) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
const std::vector<std::string> realFiles{"gradient", "optimized", "background", "previous", "interlaced"};

/// The red, green, blue and alpha bytes of all frames, one after the other.
std::string pixelsOf(const std::string& bytes) {
  std::string pixels;
  const auto file = fileOf(bytes);
  if (!file) return pixels;
  GifCanvas canvas(file);
  for (std::size_t i = 0; i < file->frames().size(); ++i) {
    const auto bitmap = canvas.frame(i);
    if (!bitmap || bitmap->width != file->width() || bitmap->height != file->height()) return "not drawn";
    for (std::size_t pixel = 0; pixel < bitmap->size(); pixel += 4) {
      std::uint32_t color = 0;
      std::memcpy(&color, bitmap->pixels.get() + pixel, sizeof(color));
      for (const int shift : {16, 8, 0, 24}) pixels += static_cast<char>(color >> shift & 0xFFU);
    }
  }
  return pixels;
}

struct Drawing {
  std::string name;
  std::vector<GifFrameText> frames;
  std::vector<std::string> expected;
};

TEST(GifCanvasTest, DrawsEachFrameOverWhatTheFormerLeaves) {
  const std::vector<std::string> full{"000", "000"};
  const std::vector<std::string> dot{"1"};
  const std::vector<Drawing> drawings{
      {"kept", {{full}, {dot, 1, 1}, {dot, 0, 0}}, {"000/000", "000/010", "100/010"}},
      {"kept by name", {{full, 0, 0, 1}, {dot, 1, 1, 1}, {dot}}, {"000/000", "000/010", "100/010"}},
      {"to transparent", {{full}, {dot, 1, 1, 2}, {dot}}, {"000/000", "000/010", "100/0.0"}},
      {"whole canvas to transparent", {{full, 0, 0, 2}, {dot, 2, 0}}, {"000/000", "..1/..."}},
      {"to the former",
       {{full}, {dot, 1, 1, 3}, {dot, 2, 1, 3}, {dot}},
       {"000/000", "000/010", "000/001", "100/000"}},
      {"the first to the former", {{dot, 0, 0, 3}, {dot, 1, 1}}, {"1../...", ".../.1."}},
      {"transparent", {{full}, {{"12", "21"}, 0, 0, 0, 2}}, {"000/000", "100/010"}},
      {"own colours", {{full, 0, 0, 0, -1, 10, true}, {dot}}, {"aaa/aaa", "1aa/aaa"}},
      {"outside", {{{"11", "11"}, 2, 1}, {dot, 3, 0}, {dot, 0, 9}}, {".../..1", ".../..1", ".../..1"}},
      {"wider and higher", {{{"0123", "1230", "2301"}}}, {"012/123"}},
  };
  for (const auto& drawing : drawings) {
    const auto file = fileOf(gifFile(3, 2, drawing.frames));
    ASSERT_TRUE(file) << drawing.name;
    const std::size_t count = drawing.expected.size();
    ASSERT_EQ(file->frames().size(), count) << drawing.name;
    for (std::size_t first = 0; first < count; ++first) {  // from each frame on, and back again
      GifCanvas canvas(file);
      for (std::size_t i = 0; i < 2 * count; ++i) {
        const auto frame = (first + i) % count;
        EXPECT_EQ(textOf(*canvas.frame(frame)), drawing.expected[frame]) << drawing.name << " " << frame;
      }
    }
  }
}

TEST(GifCanvasTest, OrdersInterlacedRows) {
  const std::vector<std::string> rows{"0", "1", "2", "3", "0", "1", "2", "3", "2", "1"};
  // The file has the rows 0, 8, 4, 2, 6, 1, 3, 5, 7, 9.
  const auto file = fileOf(gifFile(1, 9, {{.rows = rows, .isInterlaced = true}}));
  EXPECT_EQ(textOf(*GifCanvas(file).frame(0)), "0/1/3/2/2/3/0/2/1");
}

TEST(GifCanvasTest, DecodesEachFrameOnceInOrderAndStartsAtTheNearestFullOne) {
  const std::vector<std::string> full{"00", "00"};
  const auto file = fileOf(gifFile(2, 2, {{full}, {{"1"}}, {{"2"}}, {full}, {{"3"}}, {{"1"}}}));
  GifCanvas canvas(file);
  for (std::size_t i = 0; i < 6; ++i) canvas.frame(i);
  EXPECT_EQ(canvas.decodeCount(), 6);
  canvas.frame(5);
  EXPECT_EQ(canvas.decodeCount(), 6) << "drawn already";
  EXPECT_EQ(textOf(*canvas.frame(4)), "30/00");
  EXPECT_EQ(canvas.decodeCount(), 8) << "frames 3 and 4";
}

TEST(GifCanvasTest, DrawsRealFilesAsAnotherProgramDoes) {
  for (const auto& name : realFiles) {
    const auto pixels = pixelsOf(dataFile(name + ".gif"));
    auto expected = dataFile(name + ".rgba");
    ASSERT_EQ(pixels.size(), expected.size()) << name;
    for (std::size_t i = 0; i < expected.size(); i += 4) {  // a transparent pixel has no colour
      if (expected[i + 3] == 0) expected.replace(i, 4, 4, '\0');
    }
    EXPECT_TRUE(pixels == expected) << name;
  }
}

TEST(GifCanvasTest, ACutFileKeepsTheFramesBeforeTheCut) {
  for (const auto& name : realFiles) {
    const auto whole = dataFile(name + ".gif");
    const auto pixels = pixelsOf(whole);
    std::size_t former = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
      const auto cut = pixelsOf(whole.substr(0, size));
      ASSERT_TRUE(pixels.starts_with(cut)) << name << " cut at " << size;
      ASSERT_GE(cut.size(), former) << name << " cut at " << size;
      former = cut.size();
    }
    EXPECT_EQ(former, pixels.size());
  }
}

TEST(GifCanvasTest, AChangedByteDoesNotPreventDrawing) {
  for (const auto& name : realFiles) {
    auto bytes = dataFile(name + ".gif");
    for (auto& byte : bytes) {
      const char original = byte;
      for (const int change : {1, 0x80, 0xFF}) {
        byte = static_cast<char>(original ^ change);
        ASSERT_NE(pixelsOf(bytes), "not drawn") << name << " at " << &byte - bytes.data();
      }
      byte = original;
    }
  }
}

TEST(GifCanvasTest, HasBounds) {
  const std::vector<std::string> dot{"1"};
  const auto frames = [&](std::size_t count) { return std::vector<GifFrameText>(count, {dot}); };
  EXPECT_EQ(frameCount(gifFile(1, 1, frames(10'000))), 10'000u);
  EXPECT_EQ(frameCount(gifFile(1, 1, frames(10'001))), 0u);
  EXPECT_EQ(frameCount(gifFile(4096, 4096, frames(1))), 1u) << "64 MiB";
  EXPECT_EQ(frameCount(gifFile(4097, 4096, frames(1))), 0u);
  EXPECT_EQ(frameCount(gifFile(65535, 65535, frames(1))), 0u);
  EXPECT_EQ(frameCount(gifFile(32769, 32768, frames(1))), 0u) << "128 KiB in a size of 32 bits";
  EXPECT_EQ(frameCount(gifFile(0, 1, frames(1))), 0u);
  EXPECT_EQ(frameCount(gifFile(1, 1, {})), 0u);
  EXPECT_EQ(frameCount(gifFile(1, 1, frames(1)) + std::string(maximumFileSize, '\0')), 0u);
  EXPECT_EQ(frameCount(""), 0u);

  // A frame of 65,535 by 65,535 pixels without any, and data that has clear codes alone.
  auto huge = gifFile(1, 1, {{dot}, {dot}});
  const auto second = huge.rfind(',');
  huge.replace(second + 5, 4, 4, '\xFF');
  EXPECT_EQ(frameCount(huge), 1u);
  auto endless = gifFile(1, 1, frames(1));
  endless.resize(endless.rfind(',') + 11);
  for (int i = 0; i < 1000; ++i) endless += "\x06" + std::string("\x24\x49\x92\x24\x49\x92");
  EXPECT_EQ(frameCount(endless), 0u);
}

TEST(AnimatedImageTest, TakesItsDelaysFromTheFile) {
  const auto bytes = gifFile(1, 1,
                             {{.rows = {"0"}, .hasControl = false},
                              {.rows = {"1"}, .delay = 0},
                              {.rows = {"2"}, .delay = 1},
                              {.rows = {"3"}, .delay = 65535}});
  EXPECT_THAT(frameDelays(*fileOf(bytes)), ElementsAre(0.1F, 0.1F, 0.01F, 655.35F));
}

TEST(AnimatedImageTest, CountsTheMemoryOfAllSteps) {
  const auto megabytes = [](int side, const std::vector<int>& delays) {
    std::vector<GifFrameText> frames;
    for (const int delay : delays) frames.push_back({.rows = {"0"}, .delay = delay});
    const auto image = AnimatedImage::create(makeData(gifFile(side, side, frames)), 0.8F, 60, 2.0);
    return *std::get<0>(image)->decodedMegabytes;
  };
  EXPECT_EQ(megabytes(499, {100}), 0) << "996,004 bytes";
  EXPECT_EQ(megabytes(500, {100}), 1);
  EXPECT_EQ(megabytes(500, {100, 300}), 4) << "a frame of three steps counts three times";
  const auto none = std::get<Error>(AnimatedImage::create(makeData("GIF89a"), 0.8F, 60, 1.0));
  EXPECT_EQ(none.description(), "GifParseError.noImages(message: \"Invalid gif file \")");
}

}  // namespace
}  // namespace orrelo::test
