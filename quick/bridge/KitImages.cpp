#include "bridge/KitImages.h"

#include <QImage>
#include <QQmlEngine>
#include <QQuickImageProvider>

#include <map>
#include <mutex>

namespace orrelo::quick {
namespace {

const QString providerName = QStringLiteral("orrelo");

struct Shown {
  std::mutex mutex;
  std::uint64_t count = 0;
  std::map<std::uint64_t, std::weak_ptr<const Image>> byNumber;
  std::map<const Image*, std::uint64_t> numbers;
};

Shown& shown() {
  static auto* const shown = new Shown;
  return *shown;
}

void forgetGone(Shown& all) {
  std::erase_if(all.numbers, [&](const auto& entry) { return all.byNumber.at(entry.second).expired(); });
  std::erase_if(all.byNumber, [](const auto& entry) { return entry.second.expired(); });
}

// Shares the pixels, which live as long as the picture.
QImage toQt(const ImagePtr& image) {
  const auto& bitmap = image->bitmap;
  return QImage(
      bitmap.pixels.get(), bitmap.width, bitmap.height, bitmap.width * Bitmap::bytesPerPixel,
      QImage::Format_RGBA8888_Premultiplied, [](void* held) { delete static_cast<ImagePtr*>(held); },
      new ImagePtr(image));
}

class Provider final : public QQuickImageProvider {
 public:
  Provider() : QQuickImageProvider(QQmlImageProviderBase::Image) {}

  QImage requestImage(const QString& id, QSize* size, const QSize& wanted) override {
    ImagePtr image;
    {
      const std::lock_guard lock(shown().mutex);
      const auto found = shown().byNumber.find(id.toULongLong());
      if (found != shown().byNumber.end()) image = found->second.lock();
    }
    if (!image) return {};
    auto picture = toQt(image);
    if (size != nullptr) *size = picture.size();
    const QSize fitted = picture.size().scaled(wanted.expandedTo({1, 1}), Qt::KeepAspectRatio);
    const bool isSmaller = wanted.width() > 0 && wanted.height() > 0 && fitted.width() < picture.width();
    return isSmaller ? picture.scaled(fitted, Qt::KeepAspectRatio, Qt::SmoothTransformation) : picture;
  }
};

}  // namespace

void KitImages::serve(QQmlEngine& engine) {
  if (engine.imageProvider(providerName) == nullptr) engine.addImageProvider(providerName, new Provider);
}

QUrl KitImages::url(const ImagePtr& image) {
  if (!image) return {};
  auto& all = shown();
  const std::lock_guard lock(all.mutex);
  forgetGone(all);
  auto& number = all.numbers[image.get()];
  if (number == 0) {
    number = ++all.count;
    all.byNumber[number] = image;
  }
  return QUrl(QStringLiteral("image://%1/%2").arg(providerName).arg(number));
}

}  // namespace orrelo::quick
