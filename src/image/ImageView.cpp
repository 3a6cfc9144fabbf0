#include "image/ImageView.h"

namespace orrelo {

void ImageView::load(const std::string& url) {
  state.set({"", url});
}
void ImageView::setAsset(const std::string& name) {
  state.set({name, ""});
}

}  // namespace orrelo
