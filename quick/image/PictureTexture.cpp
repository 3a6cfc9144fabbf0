#include "quick/image/PictureTexture.h"

#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QPainter>
#include <QSGRendererInterface>
#include <algorithm>
#include <map>
#include <mutex>
#include <tuple>
#include <utility>

namespace orrelo::quick {
namespace {

// The result shares the pixels of `image` and keeps it alive.
QImage toQt(const ImagePtr& image) {
  const auto& bitmap = image->bitmap;
  return {bitmap.pixels.get(),
          bitmap.width,
          bitmap.height,
          qsizetype{bitmap.width} * Bitmap::bytesPerPixel,
          bitmap.isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied,
          [](void* kept) { delete static_cast<ImagePtr*>(kept); },
          new ImagePtr(image)};
}

// The longest side of a texture in the window's renderer. OpenGL is queried. Direct3D 11, Metal and the
// software renderer, which has no textures, support the longest side of a bitmap; Vulkan guarantees 4096 on
// every device.
int maximumTextureSide(const QQuickWindow& window) {
  const auto api = window.rendererInterface()->graphicsApi();
#if QT_CONFIG(opengl)
  auto* const context = QOpenGLContext::currentContext();
  if (api == QSGRendererInterface::OpenGL && context != nullptr) {
    GLint side = 0;
    context->functions()->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &side);
    if (side > 0) return side;
  }
#endif
  constexpr int least = 4096;
  return api == QSGRendererInterface::Vulkan ? least : Bitmap::maximumSide;
}

// The middle of the picture at this size, with transparent corners.
QImage cover(const QImage& picture, QSize size, int radius) {
  const auto scaled = picture.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
  QImage covered(size, QImage::Format_ARGB32_Premultiplied);
  covered.fill(Qt::transparent);
  QPainter painter(&covered);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(scaled);
  painter.setBrushOrigin((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2);
  painter.drawRoundedRect(covered.rect(), radius, radius);
  return covered;
}

}  // namespace

// The size is halved repeatedly instead of matching the item, so that an image is not rescaled in every frame
// while its item changes size.
QSize PictureTexture::sizeOf(QSize picture, QSize pixels, int maximumSide) {
  auto size = picture;
  while (size.width() / 2 >= pixels.width() && size.height() / 2 >= pixels.height()) size /= 2;
  const QSize largest(maximumSide, maximumSide);
  if (size.boundedTo(largest) != size) size.scale(largest, Qt::KeepAspectRatio);
  return size.expandedTo({1, 1});
}

PictureTexture::PictureTexture(QQuickWindow& window, ImagePtr image, const QImage& picture)
    : image_(std::move(image)), texture_(window.createTextureFromImage(picture)) {}

std::shared_ptr<const PictureTexture> PictureTexture::of(QQuickWindow& window, const ImagePtr& image,
                                                         QSize pixels) {
  const auto size = sizeOf({image->bitmap.width, image->bitmap.height}, pixels.expandedTo({1, 1}),
                           maximumTextureSide(window));
  return find(window, image, size, 0, [&] {
    const auto picture = toQt(image);
    return picture.size() == size ? picture
                                  : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  });
}

std::shared_ptr<const PictureTexture> PictureTexture::rounded(QQuickWindow& window, const ImagePtr& image,
                                                              QSize pixels, int radius) {
  const int side = maximumTextureSide(window);
  const auto size = pixels.boundedTo({side, side}).expandedTo({1, 1});
  return find(window, image, size, std::max(1, radius), [&] { return cover(toQt(image), size, radius); });
}

std::shared_ptr<const PictureTexture> PictureTexture::find(QQuickWindow& window, const ImagePtr& image,
                                                           QSize size, int radius,
                                                           const std::function<QImage()>& draw) {
  using Key = std::tuple<const QQuickWindow*, const Image*, int, int, int>;
  static auto* const mutex = new std::mutex;  // each window may render on its own thread
  static auto* const known = new std::map<Key, std::weak_ptr<const PictureTexture>>;
  const std::lock_guard lock(*mutex);
  const Key key{&window, image.get(), size.width(), size.height(), radius};
  if (const auto found = known->find(key); found != known->end()) {
    if (auto texture = found->second.lock()) return texture;
  }
  std::erase_if(*known, [](const auto& entry) { return entry.second.expired(); });
  const std::shared_ptr<const PictureTexture> texture(new PictureTexture(window, image, draw()));
  (*known)[key] = texture;
  return texture;
}

}  // namespace orrelo::quick
