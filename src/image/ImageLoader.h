#pragma once

#include "image/ImageTarget.h"

#include <string_view>

namespace orrelo {

/// The one call with which screens fill an image view.
struct ImageLoader {
  /// Blanks and whatever else a URL's query may not have are escaped, "%" too. A text that is no URL even so
  /// gets a log line: the view stays as it was, and `completion` is not called. Main thread.
  static void load(std::string_view urlString, const std::shared_ptr<ImageTarget>& imageView,
                   ImagePipeline::Completion completion = {});
};

}  // namespace orrelo
