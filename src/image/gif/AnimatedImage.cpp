#include "image/gif/AnimatedImage.h"

#include "image/gif/GifCanvas.h"
#include "image/gif/GifParseError.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace orrelo {
namespace {

constexpr float shortestDelay = 1e-6F;
// Browsers replace delays below 0.02 s by 0.1 s. Only the value for 0 is used: for the others the file's own
// delay comes first.
constexpr double shortestClampedDelay = 0.02;
constexpr double clampedDelay = 0.1;

float delayOf(const GifFrame& frame) {
  const double unclamped = frame.delay / 100.0;
  if (static_cast<float>(unclamped) >= shortestDelay) return static_cast<float>(unclamped);
  return static_cast<float>(unclamped < shortestClampedDelay ? clampedDelay : unclamped);
}

}  // namespace

std::vector<float> frameDelays(const GifFile& file) {
  std::vector<float> delays;
  std::transform(file.frames().begin(), file.frames().end(), std::back_inserter(delays), delayOf);
  return delays;
}

Result<std::shared_ptr<const AnimatedImage>> AnimatedImage::create(Data animationData, float frameKeepRatio,
                                                                   int ticksPerSecond, double scale) {
  try {
    auto file = GifFile::read(animationData);
    if (!file) return makeError(GifParseError::noImages);
    AnimatedImage image;
    image.frameDecoder = std::make_shared<const GifFile>(*std::move(file));
    image.scale = scale;
    auto first = GifCanvas(image.frameDecoder).frame(0);
    if (!first) return makeError(GifParseError::noImages);
    first->scale = scale;
    const auto size = static_cast<std::int64_t>(first->size());
    image.firstFrame = std::make_shared<const Image>(Image{*std::move(first), animationData});
    auto grid = StepGrid::choose(frameDelays(*image.frameDecoder), frameKeepRatio, ticksPerSecond);
    image.ticksPerStep = grid.ticksPerStep;
    image.stepCount = grid.stepCount;
    image.stepFrames = std::move(grid.stepFrames);
    image.decodedMegabytes = size * image.stepFrames.size() / 1'000'000;
    image.sourceBytes = std::move(animationData);
    return std::make_shared<const AnimatedImage>(std::move(image));
  } catch (const std::bad_alloc&) {
    return makeError(GifParseError::noImages);
  }
}

}  // namespace orrelo
