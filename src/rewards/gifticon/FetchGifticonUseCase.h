#pragma once

#include "rewards/gifticon/GifticonService.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

class FetchGifticonUseCase {
 public:
  virtual ~FetchGifticonUseCase() = default;

  /// See GifticonService::fetch.
  virtual reactive::Observable<std::vector<Gifticon>> fetch(const std::string& userId) = 0;
};

class FetchGifticonUseCaseImpl final : public FetchGifticonUseCase {
 public:
  explicit FetchGifticonUseCaseImpl(std::shared_ptr<GifticonService> service)
      : service_(std::move(service)) {}

  reactive::Observable<std::vector<Gifticon>> fetch(const std::string& userId) override {
    return service_->fetch(userId);
  }

 private:
  std::shared_ptr<GifticonService> service_;
};

}  // namespace orrelo
