#pragma once

#include "image/Image.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGTexture>
#include <QSize>
#include <functional>
#include <memory>

namespace orrelo::quick {

/// An image as a texture of a window's renderer, shared by all items that show it at a similar size. The
/// texture is at most twice as wide or high as its item, so that a large image in a small item takes little
/// memory and is drawn smoothly, and not larger than the renderer's limit. Used on the render thread only.
class PictureTexture {
 public:
  /// The pixels are not copied if possible.
  static std::shared_ptr<const PictureTexture> of(QQuickWindow& window, const ImagePtr& image, QSize pixels);

  /// The part of the image that covers `pixels` device pixels, with transparent corners of this radius. The
  /// texture has exactly this size.
  static std::shared_ptr<const PictureTexture> rounded(QQuickWindow& window, const ImagePtr& image,
                                                       QSize pixels, int radius);

  /// The texture's size for an image that is shown in an item of `pixels` device pixels.
  static QSize sizeOf(QSize picture, QSize pixels, int maximumSide);

  QSGTexture* texture() const { return texture_.get(); }

 private:
  PictureTexture(QQuickWindow& window, ImagePtr image, const QImage& picture);
  /// The texture of this size and radius, made of what `draw` returns unless it exists.
  static std::shared_ptr<const PictureTexture> find(QQuickWindow& window, const ImagePtr& image, QSize size,
                                                    int radius, const std::function<QImage()>& draw);

  /// Kept alive because its address is part of the texture's key and must not be reused meanwhile.
  ImagePtr image_;
  std::unique_ptr<QSGTexture> texture_;
};

}  // namespace orrelo::quick
