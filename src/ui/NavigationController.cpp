#include "ui/NavigationController.h"

#include <utility>

namespace orrelo {

std::shared_ptr<NavigationController> NavigationController::create(
    const std::shared_ptr<ViewController>& root) {
  std::shared_ptr<NavigationController> navigation(new NavigationController);
  navigation->adopt(root);
  navigation->replaceTop({root}, false);
  return navigation;
}

NavigationController::~NavigationController() {
  for (const auto& screen : state().viewControllers) release(screen);
}

std::shared_ptr<ViewController> NavigationController::visibleChild() const {
  const auto viewControllers = state().viewControllers;
  return viewControllers.empty() ? nullptr : viewControllers.back();
}

void NavigationController::pushViewController(const std::shared_ptr<ViewController>& screen, bool animated) {
  if (!canAdd(screen)) return;
  adopt(screen);
  auto viewControllers = state().viewControllers;
  viewControllers.push_back(screen);
  replaceTop(std::move(viewControllers), animated);
}

std::shared_ptr<ViewController> NavigationController::popViewController(bool animated) {
  auto viewControllers = state().viewControllers;
  if (viewControllers.size() < 2) return nullptr;
  const auto gone = viewControllers.back();
  viewControllers.pop_back();
  replaceTop(std::move(viewControllers), animated);
  release(gone);
  return gone;
}

void NavigationController::replaceTop(std::vector<std::shared_ptr<ViewController>> viewControllers,
                                      bool animated) {
  const auto former = visibleChild();
  const auto top = viewControllers.back();
  if (isVisible() && former) former->disappear(animated);
  top->loadViewIfNeeded();
  state_.change([&](State& state) {
    state.viewControllers = std::move(viewControllers);
    state.animated = animated;
  });
  if (isVisible()) top->appear(animated);
}

void NavigationController::setNavigationBarHidden(bool isHidden) {
  state_.change([&](State& state) { state.isNavigationBarHidden = isHidden; });
}

void NavigationController::setTitleTextAttributes(const std::optional<TitleTextAttributes>& attributes) {
  state_.change([&](State& state) { state.titleTextAttributes = attributes; });
}

}  // namespace orrelo
