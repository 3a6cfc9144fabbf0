#include "rewards/gifticon/GifticonViewController.h"

#include "events/UserEventTracker.h"
#include "model/UserManager.h"
#include "reactive/Observable.h"
#include "rewards/gifticon/GifticonDetailViewController.h"

#include <variant>

namespace orrelo {

using ViewState = GifticonViewModel::ViewState;

GifticonViewController::GifticonViewController(std::shared_ptr<GifticonViewModel> viewModel)
    : errorView(std::make_shared<ErrorView>("사용할 수 있는 기프티콘이 없습니다.")),
      viewModel_(std::move(viewModel)) {
  errorView->setHidden(true);
}

void GifticonViewController::viewDidLoad() {
  ORLUIViewController::viewDidLoad();
  setTitle("기프티콘");
  const std::weak_ptr<ViewController> weak = weak_from_this();
  viewModel_->viewStateStream()
      .subscribe([weak](const ViewState& viewState) {
        const auto self = std::static_pointer_cast<GifticonViewController>(weak.lock());
        if (self) self->render(viewState);
      })
      .disposedBy(disposeBag_);
  if (const auto userId = currentUserId()) viewModel_->load(*userId);
  UserEventTracker::track(UserEventName::visit, {{UserEventValueKey::pageName, "gifticon_list"}});
}

void GifticonViewController::render(const ViewState& viewState) {
  errorView->setHidden(true);
  const bool isLoading = std::holds_alternative<ViewState::Loading>(viewState.value);
  state_.change([isLoading](State& state) { state.isLoading = isLoading; });
  if (const auto* const loaded = std::get_if<ViewState::Loaded>(&viewState.value)) {
    show(*loaded);
  } else if (!isLoading) {
    toastLayer->showToast("잠시 후 다시 시도해주세요.", Color());
  }
}

void GifticonViewController::show(const ViewState::Loaded& loaded) {
  errorView->setHidden(!loaded.gifticons.empty());
  brandTheme_ = loaded.brandTheme;
  gifticons_ = loaded.gifticons;
  State changed{.cells = {}, .isLoading = false};
  changed.cells.reserve(gifticons_.size());
  for (const auto& gifticon : gifticons_)
    changed.cells.push_back(GifticonViewCell::of(gifticon, brandTheme_));
  state_.set(std::move(changed));
}

void GifticonViewController::didSelect(std::size_t row) {
  const auto userId = currentUserId();
  if (!userId || row >= gifticons_.size()) return;
  const auto gifticon = gifticons_[row];  // a copy, since publishing may replace the list
  if (std::holds_alternative<Gifticon::Idle>(gifticon.state)) {
    viewModel_->publish(gifticon.id, *userId);
  } else if (const auto* const published = std::get_if<Gifticon::Published>(&gifticon.state)) {
    present(std::make_shared<GifticonDetailViewController>(published->imageUrl, "닫기"), true);
  }
}

}  // namespace orrelo
