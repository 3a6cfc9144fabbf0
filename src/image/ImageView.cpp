#include "image/ImageView.h"

#include "image/ImageLoader.h"

#include <orrelo/platform/Application.h>

#include <memory>
#include <utility>

namespace orrelo {

bool ImageView::load(std::string_view url, ImagePipeline::Completion completion) {
  return ImageLoader::load(url, std::static_pointer_cast<ImageView>(shared_from_this()),
                           std::move(completion));
}

void ImageView::setAsset(const std::string& name) {
  ImageLoad::end(*this);
  frame.set(nullptr);
  state.set({name, nullptr});
}

void ImageView::setImage(const ImagePtr& image) {
  frame.set(nullptr);
  state.set({"", image});
}

double ImageView::scale() const {
  return Platform::current().application->screenScale();
}

void AutoLayoutImageView::resize() {
  const auto image = state.value().image;
  if (!image || image->width() <= 0.0) return;
  const double width = size().width;
  height.set(image->height() * (width / image->width()));
  if (const auto listener = delegate.lock()) listener->imageViewDidResize(width, height.value());
}

void AutoLayoutImageView::setImage(const ImagePtr& image) {
  ImageView::setImage(image);
  resize();
}

}  // namespace orrelo
