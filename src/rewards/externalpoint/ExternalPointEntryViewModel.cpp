#include "rewards/externalpoint/ExternalPointEntryViewModel.h"

#include "ui/followOnMain.h"

namespace orrelo {
namespace {

ExternalPointEntryViewModel::ViewState stateOf(const Config& config) {
  const auto& plugin = config.plugin.externalPointPlugin;
  if (plugin.enabled() == nullptr) return ExternalPointEntryViewModel::IsNotVisible();
  return ExternalPointEntryViewModel::IsVisible{plugin, config.brandTheme};
}

}  // namespace

void ExternalPointEntryViewModel::load() {
  followOnMain(
      fetchConfigUseCase_->fetch(), shared_from_this(), disposeBag_,
      [](ExternalPointEntryViewModel& self, const Config& config) { self.viewState.set(stateOf(config)); },
      [](ExternalPointEntryViewModel& self, const orrelo::Error&) { self.viewState.set(Error()); });
}

}  // namespace orrelo
