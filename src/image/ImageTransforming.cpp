#include "image/ImageTransforming.h"

#include "base/numberText.h"
#include "image/downsampled.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orrelo {
namespace {

class BaseComposableImageTransformer final : public ImageTransforming {
 public:
  BaseComposableImageTransformer(std::string identifier, std::function<ImagePtr(const ImagePtr&)> call)
      : identifier_(std::move(identifier)), call_(std::move(call)) {}

  std::string identifier() const override { return identifier_; }
  ImagePtr transform(const ImagePtr& image) const override { return call_(image); }

 private:
  std::string identifier_;
  std::function<ImagePtr(const ImagePtr&)> call_;
};

// Whole numbers keep a fraction ("100.0"), because the text is part of cache keys.
std::string lengthText(double length) {
  auto text = numberText(length);
  if (text.find_first_not_of("-0123456789") == std::string::npos) text += ".0";
  return text;
}

}  // namespace

ImageTransformer composed(ImageTransformer first, ImageTransformer second) {
  auto identifier = first->identifier() + second->identifier();
  return std::make_shared<const BaseComposableImageTransformer>(
      std::move(identifier),
      [first = std::move(first), second = std::move(second)](const ImagePtr& image) -> ImagePtr {
        const auto between = first->transform(image);
        return between ? second->transform(between) : nullptr;
      });
}

// Ends with the size, such as "(300.0, 200.0)".
std::string DownsamplingImageTransformer::identifier() const {
  return "com.velmark.DownsamplingImageTransformer@(" + lengthText(targetSize_.width) + ", " +
         lengthText(targetSize_.height) + ")";
}

ImagePtr DownsamplingImageTransformer::transform(const ImagePtr& image) const {
  const auto& bitmap = image->bitmap;
  const double ratio = std::min(targetSize_.width / bitmap.width, targetSize_.height / bitmap.height);
  if (!(ratio > 0.0)) return nullptr;
  if (ratio >= 1.0) return image;
  const auto side = [ratio](int length) {
    return std::max(1, static_cast<int>(std::lround(length * ratio)));
  };
  return std::make_shared<const Image>(
      Image{downsampled(bitmap, side(bitmap.width), side(bitmap.height)), nullptr});
}

}  // namespace orrelo
