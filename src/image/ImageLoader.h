#pragma once

#include "image/ImageTarget.h"

#include <string_view>

namespace orrelo {

/// Loads images into views; all screens use it.
struct ImageLoader {
  /// Percent-encodes characters that are not allowed in a URL's query, including spaces and "%", and loads
  /// the image. If the result is not a valid URL, logs a warning and leaves the view unchanged; if it names a
  /// GIF, clears the view. In these cases returns false, and `completion` is not called. Main thread only.
  static bool load(std::string_view urlString, const std::shared_ptr<ImageTarget>& imageView,
                   ImagePipeline::Completion completion = {});
};

}  // namespace orrelo
