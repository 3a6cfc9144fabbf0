#include "image/ImageView.h"

#include "image/ImageLoader.h"
#include "platform/Application.h"

#include <memory>

namespace orrelo {

void ImageView::load(std::string_view url) {
  ImageLoader::load(url, std::static_pointer_cast<ImageView>(shared_from_this()));
}

double ImageView::scale() const {
  return Platform::current().application->screenScale();
}

}  // namespace orrelo
