#pragma once

#include "image/Data.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Bitmap.h>
#include <orrelo/platform/ImageCodec.h>

#include <deque>
#include <map>
#include <mutex>
#include <vector>

namespace orrelo {

/// An immutable image.
struct Image {
  Bitmap bitmap;
  /// The file from which it was decoded; null if it was drawn.
  Data encoded;

  /// In points.
  double width() const { return bitmap.width / bitmap.scale; }
  double height() const { return bitmap.height / bitmap.scale; }
};

using ImagePtr = std::shared_ptr<const Image>;

/// Decodes files to images at the main screen's scale, and encodes images. Of a GIF it gives the first frame,
/// also without a codec. Files are decoded on the worker pool, two at a time, which limits the memory that
/// the codec uses in addition to the bitmaps of live images. Data whose image is still alive is not decoded
/// again.
class ImageConvertible final : public DataConvertible<ImagePtr>,
                               public std::enable_shared_from_this<ImageConvertible> {
 public:
  using Completion = std::function<void(std::optional<ImagePtr>)>;

  static constexpr int maximumRunning = 2;

  explicit ImageConvertible(const Platform& platform);

  /// Completes at once if the image of the data is alive, otherwise on a worker.
  void value(Data data, Completion completion) override;
  /// The file from which the image was decoded, or a new PNG file.
  Data data(const ImagePtr& image) override;
  /// Encodes an image that has no file, and returns it with that file, which `value` then recognises. Returns
  /// the same image if it already has a file or cannot be encoded.
  ImagePtr withFile(const ImagePtr& image);

 private:
  struct Decoding {
    std::weak_ptr<const Image> image;
    std::vector<Completion> waiting;
  };

  ImagePtr decoded(const Data& data) const;
  void startNext();
  void decode(const Data& data);
  void removeExpired();

  std::shared_ptr<ImageCodec> codec_;
  std::shared_ptr<WorkerPool> workers_;
  std::shared_ptr<Application> application_;

  std::mutex mutex_;
  /// Keyed by the address of the data, which stays unique while the image or the decoding owns the data.
  std::map<const std::string*, Decoding> decodings_;
  std::deque<Data> waiting_;
  int running_ = 0;
};

}  // namespace orrelo
