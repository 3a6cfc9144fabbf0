#pragma once

#include "image/Image.h"
#include "ui/Geometry.h"

#include <functional>
#include <memory>
#include <string>

namespace orrelo {

/// A change of an image before it is shown. Runs on any thread.
class ImageTransforming {
 public:
  virtual ~ImageTransforming() = default;

  /// Tells results apart in the cache: equal for equal results alone.
  virtual std::string identifier() const = 0;
  /// Null where it gives nothing.
  virtual ImagePtr transform(const ImagePtr& image) const = 0;
};

using ImageTransformer = std::shared_ptr<const ImageTransforming>;

/// `second` on the result of `first`.
ImageTransformer composed(ImageTransformer first, ImageTransformer second);

/// Redraws an image to fit into a size in pixels: its proportions stay, and it does not grow. Nothing for an
/// empty size.
class DownsamplingImageTransformer final : public ImageTransforming {
 public:
  explicit DownsamplingImageTransformer(Size targetSize) : targetSize_(targetSize) {}

  std::string identifier() const override;
  ImagePtr transform(const ImagePtr& image) const override;

 private:
  Size targetSize_;
};

}  // namespace orrelo
