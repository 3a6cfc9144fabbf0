#include "campaign/entry/CampaignFloatingActionButtonViewModel.h"

#include "ui/followOnMain.h"

namespace orrelo {

void CampaignFloatingActionButtonViewModel::fetch(const std::string& userId) {
  using ViewModel = CampaignFloatingActionButtonViewModel;
  followOnMain(
      fetchFloatingActionButtonPropertyUseCase_->fetch(userId), shared_from_this(), disposeBag_,
      [](ViewModel& self, const FloatingActionButtonProperty& property) {
        self.viewProperty_.onNext(property);
      },
      [](ViewModel& self, const Error& error) { self.viewProperty_.onError(error); });
}

}  // namespace orrelo
