#include "modular/content/InformationBox.h"

namespace orrelo {

InformationBox::InformationBox(const BoxedInformation& item)
    : leftText(item.leftText), rightText(item.rightText), rightTextColor(item.color) {}

std::shared_ptr<InformationBox> InformationBox::create(const BoxedInformation& item) {
  std::shared_ptr<InformationBox> box(new InformationBox(item));
  box->leftImageView->load(item.imageUrl, [weak = std::weak_ptr(box)](const Result<ImagePtr>& result) {
    const auto self = weak.lock();
    const auto* const image = std::get_if<ImagePtr>(&result);
    if (self && image != nullptr && *image) self->imageDidLoad(**image);
  });
  return box;
}

void InformationBox::imageDidLoad(const Image& image) {
  if (image.height() > 0.0) imageWidth.set(image.width() / image.height() * imageHeight);
}

}  // namespace orrelo
