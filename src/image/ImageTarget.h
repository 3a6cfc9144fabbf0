#pragma once

#include "image/ImagePipeline.h"
#include "ui/Geometry.h"

#include <orrelo/Export.h>

namespace orrelo {

class GifPlayback;

/// The interface of a view that images can be loaded into. Must be used and destroyed on the main thread.
class ORRELO_EXPORT ImageTarget {
 public:
  /// Where the view is, as the front has laid it out.
  struct Placement {
    /// False once the view has been removed from its screen. A view that no front has placed yet counts as
    /// part of one.
    bool hasSuperview = true;
    /// True if the view's window exists, the view is not hidden, and its bounds intersect the window.
    bool isOnScreen = false;

    friend bool operator==(const Placement&, const Placement&) = default;
  };

  virtual ~ImageTarget() = default;

  /// Shows the image; null shows nothing.
  virtual void setImage(const ImagePtr& image) = 0;
  /// Shows a frame of the animation whose first frame was given to `setImage`; an image without size shows
  /// nothing.
  virtual void setFrame(const ImagePtr& frame) { setImage(frame); }
  /// Shows or removes an activity indicator over the view while an animation is being loaded.
  virtual void setShowsSpinner(bool /*isShown*/) {}
  /// Shows or removes a button that calls `play`.
  virtual void setShowsPlayButton(bool /*isShown*/) {}
  /// In points.
  virtual Size boundsSize() const = 0;
  /// The scale of the view's screen, in pixels per point.
  virtual double scale() const = 0;

  /// The front calls this after each change. An animation plays only on screen; a view without a superview is
  /// detached from its playing and attached again when it gets one.
  void setPlacement(Placement placement);
  Placement placement() const { return placement_; }
  /// Starts an animation that waits for the user because of reduced motion; does nothing otherwise.
  void play();

 private:
  friend class GifPlayback;
  friend class ImageLoad;

  Placement placement_;
  /// Created by the view's first animation.
  std::shared_ptr<GifPlayback> playback_;
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
  /// Cancels a running load, ends an animation and leaves the image as it is.
  static void end(ImageTarget& view);
};

}  // namespace orrelo
