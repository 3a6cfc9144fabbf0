#include "rewards/gifticon/GifticonViewModel.h"

#include "config/withBrandTheme.h"
#include "reactive/Observable.h"
#include "ui/followOnMain.h"

#include <tuple>

namespace orrelo {

void GifticonViewModel::load(const std::string& userId) {
  follow(useCases_.fetchGifticonsUseCase->fetch(userId));
}

void GifticonViewModel::publish(const std::string& gifticonId, const std::string& userId) {
  follow(useCases_.publishGifticonUseCase->publish(gifticonId, userId));
}

void GifticonViewModel::follow(const reactive::Observable<std::vector<Gifticon>>& gifticons) {
  using Branded = std::tuple<std::vector<Gifticon>, BrandTheme>;
  viewStateStream_.onNext({ViewState::Loading()});
  followOnMain(
      withBrandTheme(gifticons, *useCases_.fetchConfigUseCase), shared_from_this(), disposeBag_,
      [](const GifticonViewModel& self, const Branded& branded) {
        const auto& [loaded, brandTheme] = branded;
        self.viewStateStream_.onNext({ViewState::Loaded{loaded, brandTheme}});
      },
      [](const GifticonViewModel& self, const Error& error) { self.viewStateStream_.onNext({error}); },
      {.background =
           std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::userInitiated)});
}

}  // namespace orrelo
