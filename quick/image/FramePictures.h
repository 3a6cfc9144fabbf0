#pragma once

#include "image/Image.h"

#include <QImage>
#include <memory>
#include <vector>

namespace orrelo::quick {

/// The frames of an animation in the format that the software renderer draws fastest. A frame that the core
/// keeps is converted once.
class FramePictures {
 public:
  /// Null if memory is exhausted.
  QImage of(const ImagePtr& frame);
  void clear() { entries_.clear(); }

 private:
  struct Entry {
    std::weak_ptr<const Image> frame;
    QImage picture;
  };
  std::vector<Entry> entries_;
};

}  // namespace orrelo::quick
