#pragma once

#include "image/ImageTarget.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// Shows one of the kit's own images or a loaded one. Must be owned by a shared pointer.
class ORRELO_EXPORT ImageView : public View, public ImageTarget {
 public:
  struct State {
    /// The name of one of the kit's images; empty if another image or none is shown.
    std::string asset;
    /// The loaded image, or the first frame of an animation; null until it has been loaded.
    ImagePtr image;

    friend bool operator==(const State&, const State&) = default;
  };

  std::string_view kind() const override { return "ImageView"; }

  /// Loads an image or, if the URL's path ends in ".gif", an animation, and shows it; see
  /// `ImageLoader::load`. Returns false if the URL is not valid, and `completion` is not called then.
  bool load(std::string_view url, ImagePipeline::Completion completion = {});
  /// Shows one of the kit's own images and cancels a running load.
  void setAsset(const std::string& name);

  void setImage(const ImagePtr& image) override;
  void setFrame(const ImagePtr& image) override { frame.set(image); }
  void setShowsSpinner(bool isShown) override { showsSpinner.set(isShown); }
  void setShowsPlayButton(bool isShown) override { showsPlayButton.set(isShown); }
  Size boundsSize() const override { return size(); }
  double scale() const override;

  Followed<State> state;
  /// The current frame of an animation, which is drawn in place of `state.image` and in its size; null if
  /// there is none. It is apart from `state`, whose followers need not run at the rate of frames.
  Followed<ImagePtr> frame;
  /// True while an animation is being loaded.
  Followed<bool> showsSpinner;
  /// True while an animation shows only its first frame until `play` is called, because the user has enabled
  /// reduced motion.
  Followed<bool> showsPlayButton;
};

/// Receives the new size of an AutoLayoutImageView.
class ORRELO_EXPORT AutoLayoutImageViewDelegate {
 public:
  virtual ~AutoLayoutImageViewDelegate() = default;

  virtual void imageViewDidResize(double width, double height) = 0;
};

/// An image view that adapts its height to the aspect ratio of its image at the view's width.
class ORRELO_EXPORT AutoLayoutImageView final : public ImageView {
 public:
  /// How the image is placed in the view: scaled to fit, or centred in its own size.
  enum class ContentMode { scaleAspectFit, center };

  static constexpr std::string_view kindName = "AutoLayoutImageView";
  std::string_view kind() const override { return kindName; }

  ContentMode contentMode = ContentMode::scaleAspectFit;

  /// Sets the height and notifies the delegate; does nothing without an image. Called for each new size and
  /// each new image.
  void resize();
  void setImage(const ImagePtr& image) override;

  /// The height for the front's layout; 0 until an image has been set.
  Followed<double> height;
  std::weak_ptr<AutoLayoutImageViewDelegate> delegate;

 private:
  void layoutSubviews() override { resize(); }
};

}  // namespace orrelo
