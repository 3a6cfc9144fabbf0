// Takes the input as a GIF file. It must give at least one frame or `noImages`; every step must have a frame,
// and the frames must have the canvas's size and be the same in any order.
#include "image/gif/AnimatedImage.h"
#include "image/gif/GifCanvas.h"
#include "image/gif/GifParseError.h"
#include "require.h"

#include <cstdint>
#include <cstring>

namespace orrelo::test {
namespace {

// Larger files are only walked, since drawing them takes seconds without showing anything new.
constexpr std::size_t maximumDrawnBytes = std::size_t{4} * 1024 * 1024;

void draw(const AnimatedImage& image) {
  const auto& file = *image.frameDecoder;
  const std::size_t count = file.frames().size();
  GifCanvas forwards(image.frameDecoder);
  std::optional<Bitmap> last;
  for (std::size_t i = 0; i < count; ++i) {
    last = forwards.frame(i);
    require(last && last->width == file.width() && last->height == file.height(), "a frame is the canvas");
  }
  require(forwards.decodeCount() == static_cast<int>(count), "a frame is decoded once");
  GifCanvas alone(image.frameDecoder);
  const auto same = alone.frame(count - 1);
  require(same && std::memcmp(same->pixels.get(), last->pixels.get(), last->size()) == 0,
          "the order does not matter");
  require(alone.frame(0) && forwards.frame(0), "one can go back");
}

void replay(std::string_view bytes) {
  const auto result = AnimatedImage::create(makeData(std::string(bytes)), 0.8F, 60, 1.0);
  if (const auto* const error = std::get_if<Error>(&result)) {
    return require(*error == makeError(GifParseError::noImages), "the error");
  }
  const auto& image = *std::get<0>(result);
  const auto count = static_cast<int>(image.frameDecoder->frames().size());
  require(*image.stepCount >= 0 && image.stepFrames.size() == *image.stepCount, "each step has a frame");
  for (const auto& run : image.stepFrames.runs()) {
    require(run.frame >= 0 && run.frame < count, "a step shows a frame of the file");
    require(image.stepFrames.runs()[image.stepFrames.runOf(run.end - 1)] == run,
            "a run is found by its step");
  }
  require(image.firstFrame != nullptr && *image.decodedMegabytes >= 0, "the first frame");
  if (image.firstFrame->bitmap.size() * static_cast<std::size_t>(count) <= maximumDrawnBytes) draw(image);
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orrelo::test::replay({reinterpret_cast<const char*>(data), size});
  return 0;
}
