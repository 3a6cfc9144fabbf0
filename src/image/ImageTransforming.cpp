#include "image/ImageTransforming.h"

#include "image/downsampled.h"

#include <algorithm>
#include <array>
#include <charconv>
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

// The shortest text that reads back, with a fraction always.
std::string text(double number) {
  std::array<char, 32> digits{};
  std::string result(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
  if (result.find_first_not_of("-0123456789") == std::string::npos) result += ".0";
  return result;
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

// "(300.0, 200.0)"
std::string DownsamplingImageTransformer::identifier() const {
  return "com.velmark.DownsamplingImageTransformer@(" + text(targetSize_.width) + ", " +
         text(targetSize_.height) + ")";
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
