#pragma once

#include "image/ImagePipeline.h"
#include "ui/Geometry.h"

namespace orrelo {

/// What a view offers to have images loaded into it. The main thread's. Its last release happens there too.
class ImageTarget {
 public:
  virtual ~ImageTarget() = default;

  /// Null shows nothing.
  virtual void setImage(const ImagePtr& image) = 0;
  /// In points.
  virtual Size boundsSize() const = 0;
  /// Pixels to a point of the screen that it is on.
  virtual double scale() const = 0;

 private:
  friend class ImageLoad;

  std::optional<Url> currentUrl_;
  std::optional<DownloadTask<ImagePtr>> downloadTask_;
  unsigned loadCount_ = 0;
  bool isLoading_ = false;
};

struct ImageDisplayOptions {
  /// Stores and shows the image in no more pixels than the view has.
  bool downsamples = false;
};

struct ImageLoadOptions {
  ImagePtr placeholder = nullptr;
  ImageDisplayOptions displayOptions = {};
  ImageTransformer imageTransformer = nullptr;
  /// On success and on failure, `canceled` included, whether or not the view still wants the image. What it
  /// loads into a view on `canceled` gives way to the load that has cancelled.
  ImagePipeline::Completion completion = {};
};

/// The view's current load, and the only one: a new one cancels the former.
class ImageLoad {
 public:
  /// Shows the placeholder, then the image, unless the view has gone or moved on to another URL by then.
  /// Without a URL the placeholder is all. Main thread.
  static std::optional<DownloadTask<ImagePtr>> setImage(const std::shared_ptr<ImageTarget>& view,
                                                        const std::optional<Url>& url,
                                                        const ImageLoadOptions& options = {});
  /// Ends a load that is on its way; the view stays as it is.
  static void end(ImageTarget& view);
};

}  // namespace orrelo
