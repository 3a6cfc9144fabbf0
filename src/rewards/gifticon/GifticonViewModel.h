#pragma once

#include "config/Config.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Disposable.h"
#include "reactive/Subjects.h"
#include "rewards/gifticon/FetchGifticonUseCase.h"
#include "rewards/gifticon/PublishGifticonUseCase.h"

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orrelo {

/// The dependencies of a gifticon screen.
struct GifticonUseCases {
  std::shared_ptr<FetchGifticonUseCase> fetchGifticonsUseCase;
  std::shared_ptr<PublishGifticonUseCase> publishGifticonUseCase;
  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase;
};

/// The state of one gifticon screen. Main thread.
class GifticonViewModel : public std::enable_shared_from_this<GifticonViewModel> {
 public:
  struct ViewState {
    struct Loaded {
      std::vector<Gifticon> gifticons;
      BrandTheme brandTheme;
    };
    struct Loading {};

    std::variant<Loading, Loaded, Error> value;
  };

  static std::shared_ptr<GifticonViewModel> create(GifticonUseCases useCases) {
    return std::shared_ptr<GifticonViewModel>(new GifticonViewModel(std::move(useCases)));
  }

  /// Fetches the user's vouchers. Calls of `load` and `publish` do not wait for each other: each emits
  /// `Loading` at once, and its own list or error as soon as it has one.
  void load(const std::string& userId);
  /// Issues a voucher.
  void publish(const std::string& gifticonId, const std::string& userId);

  /// Emits the states on the main thread. It never ends and does not replay the last state.
  reactive::Observable<ViewState> viewStateStream() const { return viewStateStream_.asObservable(); }

 private:
  explicit GifticonViewModel(GifticonUseCases useCases) : useCases_(std::move(useCases)) {}

  void follow(const reactive::Observable<std::vector<Gifticon>>& gifticons);

  const GifticonUseCases useCases_;
  const reactive::PublishSubject<ViewState> viewStateStream_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
