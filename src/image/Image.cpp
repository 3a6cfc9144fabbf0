#include "image/Image.h"

#include "platform/Application.h"
#include "platform/WorkerPool.h"

#include <utility>

namespace orrelo {

ImageConvertible::ImageConvertible(const Platform& platform)
    : codec_(platform.imageCodec), workers_(platform.workers), application_(platform.application) {}

void ImageConvertible::value(Data data, Completion completion) {
  ImagePtr known;
  {
    const std::lock_guard lock(mutex_);
    auto& decoding = decodings_[data.get()];
    known = decoding.image.lock();
    if (!known) {
      decoding.waiting.push_back(std::move(completion));
      if (decoding.waiting.size() > 1) return;
    }
  }
  if (known) return completion(known);
  workers_->post(QualityOfService::userInteractive,
                 [self = shared_from_this(), data = std::move(data)] { self->decode(data); });
}

ImagePtr ImageConvertible::decoded(const Data& data) const {
  try {
    auto bitmap = codec_ ? codec_->decode(*data) : std::nullopt;
    if (!bitmap) return nullptr;
    bitmap->scale = application_->screenScale();
    return std::make_shared<const Image>(Image{*std::move(bitmap), data});
  } catch (const std::exception&) {  // no memory for so many pixels
    return nullptr;
  }
}

void ImageConvertible::decode(const Data& data) {
  const auto image = decoded(data);
  std::vector<Completion> waiting;
  {
    const std::lock_guard lock(mutex_);
    auto& decoding = decodings_[data.get()];
    std::swap(waiting, decoding.waiting);
    decoding.image = image;
    std::erase_if(decodings_, [](const auto& entry) {
      return entry.second.waiting.empty() && entry.second.image.expired();
    });
  }
  for (const auto& completion : waiting) completion(image ? std::optional(image) : std::nullopt);
}

Data ImageConvertible::data(const ImagePtr& image) {
  if (image->encoded) return image->encoded;
  auto bytes = codec_ ? codec_->encode(image->bitmap) : std::nullopt;
  return bytes ? makeData(*std::move(bytes)) : nullptr;
}

}  // namespace orrelo
