#include "image/Image.h"

#include "image/gif/GifCanvas.h"
#include "platform/threads/KitThread.h"

#include <orrelo/platform/WorkerPool.h>

#include <utility>

namespace orrelo {
namespace {

// The codec reads no GIF.
std::optional<Bitmap> firstFrame(const Data& data) {
  if (!GifFile::isGif(*data)) return std::nullopt;
  auto file = GifFile::read(data);
  return file ? GifCanvas(std::make_shared<const GifFile>(*std::move(file))).frame(0) : std::nullopt;
}

}  // namespace

ImageConvertible::ImageConvertible(const Platform& platform)
    : codec_(platform.imageCodec), workers_(platform.workers), application_(platform.application) {
  using Signal = Application::Signal;
  const auto enter = [this](Signal signal, bool isInBackground) {
    return application_->observe(signal, [weak = std::weak_ptr(kept_), isInBackground] {
      const auto kept = weak.lock();
      if (!kept) return;
      kept->isInBackground = isInBackground;
      if (isInBackground) kept->images.removeAll();
    });
  };
  registrations_ = {enter(Signal::didEnterBackground, true), enter(Signal::willEnterForeground, false)};
}

void ImageConvertible::value(Data data, Completion completion) {
  auto image = kept(data);
  if (!image) {
    const std::lock_guard lock(mutex_);
    auto& decoding = decodings_[data.get()];
    image = decoding.image.lock();
    if (!image) {
      decoding.waiting.push_back(std::move(completion));
      if (decoding.waiting.size() > 1) return;
      waiting_.push_back(std::move(data));
    } else {
      keep(image);
    }
  }
  if (!image) return startNext();
  completion(std::move(image));
}

void ImageConvertible::keep(const ImagePtr& image) {
  if (kept_->isInBackground) return;
  kept_->images.insert(image->encoded.get(), image, image->bitmap.size() + image->encoded->size());
}

void ImageConvertible::startNext() {
  Data data;
  {
    const std::lock_guard lock(mutex_);
    if (running_ == maximumRunning || waiting_.empty()) return;
    ++running_;
    data = std::move(waiting_.front());
    waiting_.pop_front();
  }
  workers_->postDecoding([self = shared_from_this(), data = std::move(data)] { self->decode(data); });
}

ImagePtr ImageConvertible::decoded(const Data& data) const {
  try {
    auto bitmap = codec_ ? codec_->decode(*data) : std::nullopt;
    if (!bitmap) bitmap = firstFrame(data);
    if (!bitmap) return nullptr;
    bitmap->scale = application_->screenScale();
    return std::make_shared<const Image>(Image{*std::move(bitmap), data});
  } catch (const std::exception&) {  // out of memory
    return nullptr;
  }
}

void ImageConvertible::decode(const Data& data) {
  const auto image = decoded(data);
  if (image) keep(image);
  std::vector<Completion> waiting;
  {
    const std::lock_guard lock(mutex_);
    auto& decoding = decodings_[data.get()];
    std::swap(waiting, decoding.waiting);
    decoding.image = image;
    removeExpired();
    --running_;
  }
  startNext();
  for (const auto& completion : waiting) {
    runGuarded([&] { completion(image ? std::optional(image) : std::nullopt); });
  }
}

void ImageConvertible::removeExpired() {
  std::erase_if(decodings_, [](const auto& entry) {
    return entry.second.waiting.empty() && entry.second.image.expired();
  });
}

Data ImageConvertible::data(const ImagePtr& image) {
  if (image->encoded) return image->encoded;
  try {
    auto bytes = codec_ ? codec_->encode(image->bitmap) : std::nullopt;
    return bytes ? makeData(*std::move(bytes)) : nullptr;
  } catch (const std::exception&) {  // out of memory
    return nullptr;
  }
}

ImagePtr ImageConvertible::withFile(const ImagePtr& image) {
  if (image->encoded) return image;
  auto file = data(image);
  if (!file) return image;
  auto whole = std::make_shared<const Image>(Image{image->bitmap, file});
  const std::lock_guard lock(mutex_);
  removeExpired();
  decodings_[file.get()].image = whole;
  return whole;
}

}  // namespace orrelo
