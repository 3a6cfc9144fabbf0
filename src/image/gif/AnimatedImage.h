#pragma once

#include "image/Image.h"
#include "image/gif/GifFile.h"
#include "image/gif/StepGrid.h"

#include <memory>
#include <optional>
#include <vector>

namespace orrelo {

/// An animation: its file and the frame of each step on the display's grid. Immutable; any thread.
struct AnimatedImage {
  /// Reads the file, decodes its first frame and chooses the grid. `frameKeepRatio` is the share of frames
  /// that must be shown. `scale` is that of the frames' bitmaps. The only error is `noImages`.
  static Result<std::shared_ptr<const AnimatedImage>> create(Data animationData, float frameKeepRatio,
                                                             int ticksPerSecond, double scale);

  std::shared_ptr<const GifFile> frameDecoder;
  /// In pixels per point.
  double scale = 1.0;
  ImagePtr firstFrame;
  std::optional<int> ticksPerStep;
  /// Less than 1 for a still image.
  std::optional<std::int64_t> stepCount;
  StepFrames stepFrames;
  /// The memory that the bitmaps of all steps would need, in megabytes of 1,000,000 bytes. Deliberately
  /// counts a frame once for each of its steps, although the cache keeps it once.
  std::optional<std::int64_t> decodedMegabytes;
  Data sourceBytes;
};

/// The time for which each frame is shown, in seconds: a tenth for a delay of 0, otherwise the file's.
std::vector<float> frameDelays(const GifFile& file);

}  // namespace orrelo
