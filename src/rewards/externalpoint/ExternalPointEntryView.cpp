#include "rewards/externalpoint/ExternalPointEntryView.h"

#include "events/KelsoInsight.h"
#include "rewards/externalpoint/ExternalPointExchangeViewController.h"
#include "ui/RunningKit.h"
#include "viewkit/legibility.h"

namespace orrelo {

// Defined here, since a front that makes the view cannot link the streams.
ExternalPointEntryView::ExternalPointEntryView() = default;
ExternalPointEntryView::~ExternalPointEntryView() = default;

void ExternalPointEntryView::didMoveToWindow() {
  if (viewModel_ || !RunningKit::isInitialized(kindName)) return;
  const auto kit = RunningKit::current();
  if (!kit) return;
  viewModel_ = std::make_shared<ExternalPointEntryViewModel>(kit->fetchConfigUseCase);
  const auto weak = std::weak_ptr(std::static_pointer_cast<ExternalPointEntryView>(shared_from_this()));
  viewModel_->viewState.changes()
      .subscribe([weak](reactive::Unit) {
        if (const auto self = weak.lock()) self->show(self->viewModel_->viewState.value());
      })
      .disposedBy(disposeBag_);
  viewModel_->load();
}

void ExternalPointEntryView::show(const ExternalPointEntryViewModel::ViewState& viewState) {
  const auto* const visible = std::get_if<ExternalPointEntryViewModel::IsVisible>(&viewState);
  const auto* const plugin = visible != nullptr ? visible->externalPointPlugin.enabled() : nullptr;
  if (plugin == nullptr) return state.set({});
  const auto& color = visible->brandTheme.primary;
  state.set({.isHidden = false,
             .guideMessage = plugin->entryViewMessage,
             .exchangeLabel = plugin->exchangeText,
             .exchangeColor = color,
             .exchangeTextColor = textColorOn(color),
             .landingUrl = plugin->landingUrl});
}

void ExternalPointEntryView::navigate(const std::shared_ptr<ViewController>& nearest) const {
  const auto& landingUrl = state.value().landingUrl;
  if (!landingUrl) return;
  if (nearest) {
    const auto screen = std::make_shared<ExternalPointExchangeViewController>(*landingUrl);
    screen->modalPresentationStyle = ModalPresentationStyle::fullScreen;
    nearest->present(screen, true);
  }
  // The host's delegate deliberately does not hear of this event.
  KelsoInsight::track("ol_external_point_entry_view_click", {});
}

}  // namespace orrelo
