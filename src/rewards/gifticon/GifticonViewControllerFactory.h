#pragma once

#include "rewards/gifticon/GifticonViewModel.h"
#include "ui/ViewController.h"

#include <memory>
#include <utility>

namespace orrelo {

class GifticonViewControllerFactory {
 public:
  virtual ~GifticonViewControllerFactory() = default;

  /// A new gifticon screen. Main thread.
  virtual std::shared_ptr<ViewController> make() const = 0;
};

/// Creates each screen with its own view model.
class GifticonViewControllerFactoryImpl final : public GifticonViewControllerFactory {
 public:
  explicit GifticonViewControllerFactoryImpl(GifticonUseCases useCases) : useCases_(std::move(useCases)) {}

  std::shared_ptr<ViewController> make() const override;

 private:
  GifticonUseCases useCases_;
};

}  // namespace orrelo
