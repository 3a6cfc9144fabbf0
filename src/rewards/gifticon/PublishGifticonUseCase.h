#pragma once

#include "rewards/gifticon/GifticonService.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

class PublishGifticonUseCase {
 public:
  virtual ~PublishGifticonUseCase() = default;

  /// See GifticonService::publish.
  virtual reactive::Observable<std::vector<Gifticon>> publish(const std::string& gifticonId,
                                                              const std::string& userId) = 0;
};

class PublishGifticonUseCaseImpl final : public PublishGifticonUseCase {
 public:
  explicit PublishGifticonUseCaseImpl(std::shared_ptr<GifticonService> service)
      : service_(std::move(service)) {}

  reactive::Observable<std::vector<Gifticon>> publish(const std::string& gifticonId,
                                                      const std::string& userId) override {
    return service_->publish(gifticonId, userId);
  }

 private:
  std::shared_ptr<GifticonService> service_;
};

}  // namespace orrelo
