#pragma once

#include "image/ImageTarget.h"
#include "ui/View.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>
#include <string_view>

namespace orrelo {

/// A picture: one of the kit's own, or one that is loaded. Owned by a shared pointer.
class ORRELO_EXPORT ImageView : public View, public ImageTarget {
 public:
  struct State {
    /// The name of one of the kit's pictures; empty where another is shown, or none.
    std::string asset;
    /// Null until it is there.
    ImagePtr image;

    friend bool operator==(const State&, const State&) = default;
  };

  std::string_view kind() const override { return "ImageView"; }

  /// Shows nothing until the image is there, and nothing where it cannot be had.
  void load(std::string_view url, ImagePipeline::Completion completion = {});
  /// Ends a load that is on its way.
  void setAsset(const std::string& name);

  void setImage(const ImagePtr& image) override { state.set({"", image}); }
  Size boundsSize() const override { return size(); }
  double scale() const override;

  Followed<State> state;
};

/// Told the width and height that the view has taken.
class ORRELO_EXPORT AutoLayoutImageViewDelegate {
 public:
  virtual ~AutoLayoutImageViewDelegate() = default;

  virtual void imageViewDidResize(double width, double height) = 0;
};

/// An image view that takes the height that its image has at the view's width.
class ORRELO_EXPORT AutoLayoutImageView final : public ImageView {
 public:
  /// How the image lies in the view: as large as it fits, or in its own size.
  enum class ContentMode { scaleAspectFit, center };

  static constexpr std::string_view kindName = "AutoLayoutImageView";
  std::string_view kind() const override { return kindName; }

  ContentMode contentMode = ContentMode::scaleAspectFit;

  /// Takes the height, and tells the delegate, each time; nothing without an image. Done with every new size
  /// and every new image.
  void resize();
  void setImage(const ImagePtr& image) override;

  /// For a front to lay out by; 0 until there was an image.
  Followed<double> height;
  std::weak_ptr<AutoLayoutImageViewDelegate> delegate;

 private:
  void layoutSubviews() override { resize(); }
};

}  // namespace orrelo
