#include "QtImageCodec.h"

#include "PictureFile.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>
#include <memory>
#include <utility>

namespace orrelo::quick {
namespace {

constexpr auto bitmapFormat = QImage::Format_RGBA8888_Premultiplied;
constexpr qint64 maximumBytes = qint64{Bitmap::maximumSide} * Bitmap::maximumSide * Bitmap::bytesPerPixel;

// By the header alone. A reader may have more than 32 bits to a pixel.
bool isAllowed(const QImageReader& reader) {
  const QSize size = reader.size();
  if (!Bitmap::isAllowed(size.width(), size.height())) return false;
  const auto bits = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
  return qint64{size.width()} * size.height() * bits / 8 <= maximumBytes;
}

}  // namespace

std::optional<Bitmap> QtImageCodec::decode(std::string_view bytes) {
  const auto file = pictureFile(bytes);
  if (!file) return std::nullopt;
  auto raw = QByteArray::fromRawData(file->bytes.data(), static_cast<qsizetype>(file->bytes.size()));
  QBuffer buffer(&raw);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer, file->format);
  reader.setAutoDetectImageFormat(false);
  reader.setAutoTransform(true);
  if (!isAllowed(reader)) return std::nullopt;
  QImage read = reader.read();
  // A reader of a broken file may give what it has come to, and tell by its error.
  if (read.isNull() || reader.error() != QImageReader::UnknownError) return std::nullopt;
  const auto image = std::make_shared<const QImage>(std::move(read).convertToFormat(bitmapFormat));
  if (image->isNull() || !Bitmap::isAllowed(image->width(), image->height())) return std::nullopt;
  // Four bytes to a pixel leave no gaps between rows.
  return Bitmap{image->width(), image->height(), 1.0,
                std::shared_ptr<const std::uint8_t[]>(image, image->constBits())};
}

std::optional<std::string> QtImageCodec::encode(const Bitmap& bitmap) {
  if (!Bitmap::isAllowed(bitmap.width, bitmap.height)) return std::nullopt;
  const QImage image(bitmap.pixels.get(), bitmap.width, bitmap.height, bitmap.width * Bitmap::bytesPerPixel,
                     bitmapFormat);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!QImageWriter(&buffer, "png").write(image)) return std::nullopt;
  return buffer.data().toStdString();
}

}  // namespace orrelo::quick
