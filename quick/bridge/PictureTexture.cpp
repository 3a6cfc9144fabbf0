#include "quick/bridge/PictureTexture.h"

#include <QImage>
#include <map>
#include <mutex>
#include <tuple>
#include <utility>

namespace orrelo::quick {
namespace {

// Shares the pixels, which live as long as the image.
QImage toQt(const ImagePtr& image) {
  const auto& bitmap = image->bitmap;
  return {bitmap.pixels.get(),
          bitmap.width,
          bitmap.height,
          qsizetype{bitmap.width} * Bitmap::bytesPerPixel,
          QImage::Format_RGBA8888_Premultiplied,
          [](void* kept) { delete static_cast<ImagePtr*>(kept); },
          new ImagePtr(image)};
}

// Halves alone, so that a picture whose place grows and shrinks is not made anew with every frame.
QSize halvedTo(QSize size, QSize pixels) {
  while (size.width() / 2 >= pixels.width() && size.height() / 2 >= pixels.height()) size /= 2;
  return size;
}

}  // namespace

PictureTexture::PictureTexture(QQuickWindow& window, ImagePtr image, QSize size) : image_(std::move(image)) {
  auto picture = toQt(image_);
  if (picture.size() != size) {
    picture = picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  texture_.reset(window.createTextureFromImage(picture));
}

std::shared_ptr<const PictureTexture> PictureTexture::of(QQuickWindow& window, const ImagePtr& image,
                                                         QSize pixels) {
  using Key = std::tuple<const QQuickWindow*, const Image*, int, int>;
  static auto* const mutex = new std::mutex;  // each window may have a thread of its own
  static auto* const known = new std::map<Key, std::weak_ptr<const PictureTexture>>;
  const auto size = halvedTo({image->bitmap.width, image->bitmap.height}, pixels.expandedTo({1, 1}));
  const std::lock_guard lock(*mutex);
  const Key key{&window, image.get(), size.width(), size.height()};
  if (const auto found = known->find(key); found != known->end()) {
    if (auto texture = found->second.lock()) return texture;
  }
  std::erase_if(*known, [](const auto& entry) { return entry.second.expired(); });
  const std::shared_ptr<const PictureTexture> texture(new PictureTexture(window, image, size));
  (*known)[key] = texture;
  return texture;
}

}  // namespace orrelo::quick
