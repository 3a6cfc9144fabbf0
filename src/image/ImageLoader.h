#pragma once

#include "image/ImageTarget.h"

#include <string_view>

namespace orrelo {

/// Loads images into views; all screens use it.
struct ImageLoader {
  /// Percent-encodes characters that are not allowed in a URL's query, including spaces and "%", and loads
  /// the image. If the URL's path ends in ".gif", in any case, loads an animation and plays it without end;
  /// the view then keeps its image and shows an activity indicator until the animation has been loaded.
  ///
  /// `completion` is called once, on success, with an animation's first frame, and on failure, including
  /// `canceled`. If the result is not a valid URL, logs a warning, leaves the view unchanged and returns
  /// false, and `completion` is not called. Main thread only.
  static bool load(std::string_view urlString, const std::shared_ptr<ImageTarget>& imageView,
                   ImagePipeline::Completion completion = {});
};

}  // namespace orrelo
