#include "quick/image/FramePictures.h"

#include <QtEndian>
#include <algorithm>

namespace orrelo::quick {
namespace {

QImage converted(const Bitmap& bitmap) {
  QImage picture(bitmap.width, bitmap.height, QImage::Format_ARGB32_Premultiplied);
  if (picture.isNull()) return picture;
  const auto* from = bitmap.pixels.get();
  quint32 alpha = 0xFF000000U;
  for (int y = 0; y < bitmap.height; ++y) {
    auto* const to = reinterpret_cast<quint32*>(picture.scanLine(y));
    for (int x = 0; x < bitmap.width; ++x, from += Bitmap::bytesPerPixel) {
      const auto pixel = qFromLittleEndian<quint32>(from);
      alpha &= pixel;
      to[x] = (pixel & 0xFF00FF00U) | (pixel & 0xFFU) << 16U | (pixel >> 16U & 0xFFU);
    }
  }
  if (alpha == 0xFF000000U) picture.reinterpretAsFormat(QImage::Format_RGB32);
  return picture;
}

}  // namespace

QImage FramePictures::of(const ImagePtr& frame) {
  std::erase_if(entries_, [](const Entry& entry) { return entry.frame.expired(); });
  const auto isOfFrame = [&](const Entry& entry) {
    return !entry.frame.owner_before(frame) && !frame.owner_before(entry.frame);
  };
  const auto found = std::find_if(entries_.begin(), entries_.end(), isOfFrame);
  if (found != entries_.end()) return found->picture;
  auto picture = converted(frame->bitmap);
  if (!picture.isNull()) entries_.push_back({frame, picture});
  return picture;
}

}  // namespace orrelo::quick
