#include "viewkit/ORLUIViewController.h"

namespace orrelo {

void ORLUIViewController::setTitle(const std::optional<std::string>& title) {
  modalTopBar_.change([&](ModalTopBar& bar) { bar.title = title; });
  ViewController::setTitle(title);
}

void ORLUIViewController::viewWillAppear(bool animated) {
  ViewController::viewWillAppear(animated);
  const auto navigation = navigationController();
  navigationBarTitleTextAttributes_ = navigation ? navigation->state().titleTextAttributes : std::nullopt;
  if (navigation || !presentingViewController()) collapseTopBar();
  if (navigation && !navigation->state().isNavigationBarHidden) {
    navigation->setTitleTextAttributes(NavigationController::TitleTextAttributes{Color()});
  }
}

void ORLUIViewController::viewWillDisappear(bool animated) {
  ViewController::viewWillDisappear(animated);
  if (const auto navigation = navigationController()) {
    navigation->setTitleTextAttributes(navigationBarTitleTextAttributes_);
  }
}

void ORLUIViewController::viewDidDisappear(bool animated) {
  ViewController::viewDidDisappear(animated);
  toastLayer->toasts.set({});  // running fades end when the screen disappears
}

void ORLUIViewController::collapseTopBar() {
  modalTopBar_.change([](ModalTopBar& bar) { bar.height = 0.0; });
}

}  // namespace orrelo
