#include "rewards/gifticon/GifticonViewControllerFactory.h"

#include "rewards/gifticon/GifticonViewController.h"

namespace orrelo {

std::shared_ptr<ViewController> GifticonViewControllerFactoryImpl::make() const {
  return GifticonViewController::create(GifticonViewModel::create(useCases_));
}

}  // namespace orrelo
