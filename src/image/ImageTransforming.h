#pragma once

#include "image/Image.h"
#include "ui/Geometry.h"

#include <functional>
#include <memory>
#include <string>

namespace orrelo {

/// A transformation of an image before it is shown. Any thread.
class ImageTransforming {
 public:
  virtual ~ImageTransforming() = default;

  /// Part of the cache key: transformations with different results must have different identifiers.
  virtual std::string identifier() const = 0;
  /// Returns null on failure.
  virtual ImagePtr transform(const ImagePtr& image) const = 0;
};

using ImageTransformer = std::shared_ptr<const ImageTransforming>;

/// Applies `first` and then `second`.
ImageTransformer composed(ImageTransformer first, ImageTransformer second);

/// Scales an image down to fit into a size in pixels, keeping its aspect ratio; never enlarges it. Fails for
/// an empty size.
class DownsamplingImageTransformer final : public ImageTransforming {
 public:
  explicit DownsamplingImageTransformer(Size targetSize) : targetSize_(targetSize) {}

  std::string identifier() const override;
  ImagePtr transform(const ImagePtr& image) const override;

 private:
  Size targetSize_;
};

}  // namespace orrelo
