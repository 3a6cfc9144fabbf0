#pragma once

#include "image/ImageTarget.h"
#include "viewkit/base/View.h"

#include <orrelo/Export.h>

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
  void load(std::string_view url);
  void setAsset(const std::string& name) { state.set({name, nullptr}); }

  void setImage(const ImagePtr& image) override { state.set({"", image}); }
  ImageSize boundsSize() const override { return {size().width, size().height}; }
  double scale() const override;

  Followed<State> state;
};

/// An image view that takes the height that its image has at the view's width.
class ORRELO_EXPORT AutoLayoutImageView final : public ImageView {
 public:
  /// How the image lies in the view: as large as it fits, or in its own size.
  enum class ContentMode { scaleAspectFit, center };

  std::string_view kind() const override { return "AutoLayoutImageView"; }

  ContentMode contentMode = ContentMode::scaleAspectFit;
};

}  // namespace orrelo
