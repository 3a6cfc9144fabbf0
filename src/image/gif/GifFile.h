#pragma once

#include "image/Data.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace orrelo {

/// The treatment of a frame's area before the next frame is drawn.
enum class GifDisposal { keep, background, previous };

/// A frame's description; its pixels stay in the file.
struct GifFrame {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  GifDisposal disposal = GifDisposal::keep;
  /// True if drawing this frame needs no earlier one.
  bool startsAnew = false;
  /// The index of the transparent colour; -1 if there is none.
  int transparent = -1;
  /// In hundredths of a second; 0 if the file does not give any.
  int delay = 0;
  /// The place of its description in the file.
  std::size_t place = 0;
};

/// A GIF file whose blocks have been walked once, so that each frame can be decoded alone. The frames end
/// where the file is cut or damaged. Immutable; any thread.
class GifFile {
 public:
  static constexpr std::size_t maximumFrames = 10'000;

  /// Nullopt if the bytes are no GIF with at least one whole frame, or if the file, its canvas or the number
  /// of its frames is too large. Needs no memory for pixels.
  static std::optional<GifFile> read(Data data);
  /// True if the bytes begin as a GIF does.
  static bool isGif(std::string_view bytes) { return bytes.starts_with("GIF8"); }

  int width() const { return width_; }
  int height() const { return height_; }
  /// At least one.
  const std::vector<GifFrame>& frames() const { return frames_; }
  std::string_view bytes() const { return *data_; }

 private:
  class Walk;

  GifFile() = default;

  Data data_;
  int width_ = 0;
  int height_ = 0;
  std::vector<GifFrame> frames_;
};

}  // namespace orrelo
