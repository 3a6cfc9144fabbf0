#pragma once

#include "image/Data.h"
#include "image/RecentlyUsed.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>
#include <orrelo/platform/Bitmap.h>
#include <orrelo/platform/ImageCodec.h>

#include <array>
#include <atomic>
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
/// also without a codec. Files are decoded by the worker pool's `postDecoding`, two at a time, which limits
/// the memory that the codec uses in addition to the bitmaps of live images. Data whose image is still alive
/// is not decoded again. While the application is in the foreground, the images that were used last stay
/// alive, so that a screen that is opened again has its pictures in its first frame.
class ImageConvertible final : public DataConvertible<ImagePtr>,
                               public std::enable_shared_from_this<ImageConvertible> {
 public:
  using Completion = std::function<void(std::optional<ImagePtr>)>;

  static constexpr int maximumRunning = 2;
  /// The pixels and files of the images that are kept, in bytes.
  static constexpr std::size_t keptBudget = std::size_t{16} * 1024 * 1024;

  explicit ImageConvertible(const Platform& platform);

  /// The image of the data if it is one of those that were used last; null otherwise.
  ImagePtr kept(const Data& data) { return kept_->images.value(data.get()); }
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
  void keep(const ImagePtr& image);
  void startNext();
  void decode(const Data& data);
  void removeExpired();

  std::shared_ptr<ImageCodec> codec_;
  std::shared_ptr<WorkerPool> workers_;
  std::shared_ptr<Application> application_;

  /// By the address of the data.
  using KeptImages = RecentlyUsed<const std::string*, ImagePtr>;
  struct Kept {
    KeptImages images{keptBudget};
    std::atomic<bool> isInBackground = false;
  };
  const std::shared_ptr<Kept> kept_ = std::make_shared<Kept>();
  std::array<Application::Registration, 2> registrations_;

  std::mutex mutex_;
  /// Keyed by the address of the data, which stays unique while the image or the decoding owns the data.
  std::map<const std::string*, Decoding> decodings_;
  std::deque<Data> waiting_;
  int running_ = 0;
};

}  // namespace orrelo
