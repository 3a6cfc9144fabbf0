#include "quick/platform/QtImageCodec.h"

#include "quick/platform/PictureFile.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QImageWriter>
#include <QtGui/QPainter>
#include <cstring>
#include <memory>
#include <sys/mman.h>
#include <utility>

namespace orrelo::quick {
namespace {

// Without an alpha channel Qt's readers fill the alpha byte with 0xFF, so that both are a bitmap's format.
constexpr auto bitmapFormat = QImage::Format_ARGB32_Premultiplied;
constexpr auto opaqueBitmapFormat = QImage::Format_RGB32;

// Checks the size in the file's header, also in the reader's own format, which may exceed 32 bits per pixel.
bool isAllowed(const QImageReader& reader) {
  const QSize size = reader.size();
  if (!Bitmap::isAllowed(size.width(), size.height())) return false;
  const auto bits = QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel();
  return qint64{size.width()} * size.height() * bits / 8 <= qint64{Bitmap::maximumSize};
}

// Mapped memory, which is returned to the system together with the image. Heap memory of large images would
// not be: the C library keeps up to twice the largest one for each thread that has decoded any.
class MappedMemory {
 public:
  explicit MappedMemory(std::size_t size)
      : size_(size),
        start_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {}
  ~MappedMemory() {
    if (start_ != MAP_FAILED) munmap(start_, size_);
  }
  MappedMemory(const MappedMemory&) = delete;
  MappedMemory& operator=(const MappedMemory&) = delete;

  uchar* start() const { return start_ == MAP_FAILED ? nullptr : static_cast<uchar*>(start_); }

 private:
  const std::size_t size_;
  void* const start_;
};

// An image in mapped memory; null if there is not enough memory.
QImage makeImage(QSize size, QImage::Format format) {
  const auto bits = qsizetype{QImage::toPixelFormat(format).bitsPerPixel()};
  const auto bytesPerLine = (size.width() * bits + 31) / 32 * 4;
  auto memory = std::make_unique<MappedMemory>(static_cast<std::size_t>(bytesPerLine * size.height()));
  if (memory->start() == nullptr) return {};
  auto* const start = memory->start();
  return {start,           size.width(), size.height(),
          bytesPerLine,    format,       [](void* kept) { delete static_cast<MappedMemory*>(kept); },
          memory.release()};
}

// Converts the image in place if its pixels have the same size. This is done row by row because Qt converts
// in place only images that it has allocated itself.
QImage inBitmapFormat(QImage image) {
  if (image.format() == bitmapFormat || image.format() == opaqueBitmapFormat) return image;
  const bool isInPlace = image.depth() == 8 * Bitmap::bytesPerPixel;
  auto converted = isInPlace ? QImage(image.width(), 1, bitmapFormat) : makeImage(image.size(), bitmapFormat);
  if (converted.isNull()) return converted;
  QPainter painter(&converted);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  if (!isInPlace) {
    painter.drawImage(0, 0, image);
    return converted;
  }
  for (int y = 0; y < image.height(); ++y) {
    auto* const line = image.scanLine(y);
    painter.drawImage(0, 0, QImage(line, image.width(), 1, image.format()));
    std::memcpy(line, converted.constBits(), static_cast<std::size_t>(converted.bytesPerLine()));
  }
  image.reinterpretAsFormat(bitmapFormat);
  return image;
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
  auto read = makeImage(reader.size(), reader.imageFormat());  // reused by the readers of PNG and JPEG
  // A reader may return the part of a broken file that it has decoded and report the fault only by `error`.
  if (!reader.read(&read) || reader.error() != QImageReader::UnknownError) return std::nullopt;
  const auto image = std::make_shared<const QImage>(inBitmapFormat(std::move(read)));
  if (image->isNull() || !Bitmap::isAllowed(image->width(), image->height())) return std::nullopt;
  // Rows are contiguous because a pixel has four bytes.
  return Bitmap{image->width(), image->height(), 1.0,
                std::shared_ptr<const std::uint8_t[]>(image, image->constBits()),
                image->format() == opaqueBitmapFormat};
}

std::optional<std::string> QtImageCodec::encode(const Bitmap& bitmap) {
  if (!Bitmap::isAllowed(bitmap.width, bitmap.height)) return std::nullopt;
  const QImage image(bitmap.pixels.get(), bitmap.width, bitmap.height, bitmap.width * Bitmap::bytesPerPixel,
                     bitmap.isOpaque ? opaqueBitmapFormat : bitmapFormat);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!QImageWriter(&buffer, "png").write(image)) return std::nullopt;
  return buffer.data().toStdString();
}

}  // namespace orrelo::quick
