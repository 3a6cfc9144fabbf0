#pragma once

#include "image/ImagePipeline.h"
#include "ui/Geometry.h"

namespace orrelo {

/// The interface of a view that images can be loaded into. Must be used and destroyed on the main thread.
class ImageTarget {
 public:
  virtual ~ImageTarget() = default;

  /// Shows the image; null shows nothing.
  virtual void setImage(const ImagePtr& image) = 0;
  /// In points.
  virtual Size boundsSize() const = 0;
  /// The scale of the view's screen, in pixels per point.
  virtual double scale() const = 0;

 private:
  friend class ImageLoad;

  std::optional<Url> currentUrl_;
  std::optional<DownloadTask<ImagePtr>> downloadTask_;
  unsigned loadCount_ = 0;
  bool isLoading_ = false;
};

struct ImageDisplayOptions {
  /// Downsamples the image to the view's size in pixels before it is cached and shown.
  bool downsamples = false;
};

struct ImageLoadOptions {
  ImagePtr placeholder = nullptr;
  ImageDisplayOptions displayOptions = {};
  ImageTransformer imageTransformer = nullptr;
  /// Called on success and on failure, including `canceled`, even if the view no longer needs the image. A
  /// load that it starts in the view on `canceled` is replaced by the load that caused the cancellation.
  ImagePipeline::Completion completion = {};
};

/// Manages a view's current load. A view has at most one: a new load cancels the previous one.
class ImageLoad {
 public:
  /// Shows the placeholder and then the image, unless the view has been destroyed or given another URL
  /// meanwhile. A null `url` only shows the placeholder. Main thread only.
  static std::optional<DownloadTask<ImagePtr>> setImage(const std::shared_ptr<ImageTarget>& view,
                                                        const std::optional<Url>& url,
                                                        const ImageLoadOptions& options = {});
  /// Cancels a running load and leaves the view unchanged.
  static void end(ImageTarget& view);
};

}  // namespace orrelo
