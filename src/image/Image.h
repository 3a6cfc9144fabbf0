#pragma once

#include "image/Data.h"
#include "platform/Bitmap.h"
#include "platform/ImageCodec.h"

#include <orrelo/Platform.h>

#include <deque>
#include <map>
#include <mutex>
#include <vector>

namespace orrelo {

/// A picture to show. Never changed.
struct Image {
  Bitmap bitmap;
  /// The file that it was read from; null for one that was drawn.
  Data encoded;

  /// In points.
  double width() const { return bitmap.width / bitmap.scale; }
  double height() const { return bitmap.height / bitmap.scale; }
};

using ImagePtr = std::shared_ptr<const Image>;

/// Images from files and back, at the main screen's scale. Decoding happens on the workers; the same data is
/// decoded once as long as somebody holds its image, and two files are at a time: each takes what the codec
/// says, beside the bitmaps of all images that somebody holds.
class ImageConvertible final : public DataConvertible<ImagePtr>,
                               public std::enable_shared_from_this<ImageConvertible> {
 public:
  using Completion = std::function<void(std::optional<ImagePtr>)>;

  static constexpr int maximumRunning = 2;

  explicit ImageConvertible(const Platform& platform);

  /// Completes at once for data whose image is there, else on a worker.
  void value(Data data, Completion completion) override;
  /// The file that the image came from, else a PNG.
  Data data(const ImagePtr& image) override;
  /// The image with its file, by which it is found from then on; as it is where it has one, or can have none.
  ImagePtr withFile(const ImagePtr& image);

 private:
  struct Decoding {
    std::weak_ptr<const Image> image;
    std::vector<Completion> waiting;
  };

  ImagePtr decoded(const Data& data) const;
  void startNext();
  void decode(const Data& data);
  void forgetGone();

  std::shared_ptr<ImageCodec> codec_;
  std::shared_ptr<WorkerPool> workers_;
  std::shared_ptr<Application> application_;

  std::mutex mutex_;
  /// By the data's address, which is not given to other data while the image or the decoding holds on to it.
  std::map<const std::string*, Decoding> decodings_;
  std::deque<Data> waiting_;
  int running_ = 0;
};

}  // namespace orrelo
