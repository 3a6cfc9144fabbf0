#pragma once

#include "image/Image.h"

#include <QString>
#include <QUrl>

class QQmlEngine;

namespace orrelo::quick {

/// The kit's loaded images, for the `Image` items of an engine. Any thread.
class KitImages {
 public:
  /// Lets the engine's items read the URLs below; once is enough.
  static void serve(QQmlEngine& engine);
  /// Names the image as long as somebody holds it; empty for null.
  static QUrl url(const ImagePtr& image);
};

}  // namespace orrelo::quick
