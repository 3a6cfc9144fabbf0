#pragma once

#include "image/Image.h"

#include <QQuickWindow>
#include <QSGTexture>
#include <QSize>
#include <memory>

namespace orrelo::quick {

/// A picture as a window's renderer has it, one for all items that show it about as large: at most twice as
/// wide or high as they are, so that a large picture in a small place takes little and is drawn well, and no
/// larger than the renderer's textures may be. On the thread that renders.
class PictureTexture {
 public:
  static std::shared_ptr<const PictureTexture> of(QQuickWindow& window, const ImagePtr& image, QSize pixels);

  /// The texture's size for a picture that is shown in an item of `pixels` device pixels.
  static QSize sizeOf(QSize picture, QSize pixels, int maximumSide);

  QSGTexture* texture() const { return texture_.get(); }

 private:
  PictureTexture(QQuickWindow& window, ImagePtr image, QSize size);

  /// Its address is part of what the texture is found by, and so no other picture's meanwhile.
  ImagePtr image_;
  std::unique_ptr<QSGTexture> texture_;
};

}  // namespace orrelo::quick
