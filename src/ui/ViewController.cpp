#include "ui/ViewController.h"

#include "base/explain.h"
#include "ui/NavigationController.h"

#include <utility>

namespace orrelo {
namespace {

std::string nameOf(const std::shared_ptr<ViewController>& screen) {
  return screen ? std::string(screen->kind()) : "a null screen";
}

}  // namespace

std::shared_ptr<NavigationController> ViewController::navigationController() const {
  for (auto above = parent(); above; above = above->parent()) {
    if (auto navigation = std::dynamic_pointer_cast<NavigationController>(above)) return navigation;
  }
  return nullptr;
}

std::shared_ptr<ViewController> ViewController::root() {
  auto outermost = shared_from_this();
  while (auto above = outermost->parent()) outermost = std::move(above);
  return outermost;
}

std::shared_ptr<ViewController> ViewController::presentingViewController() const {
  if (auto presenting = presenting_.lock()) return presenting;
  const auto above = parent();
  return above ? above->presentingViewController() : nullptr;
}

std::shared_ptr<ViewController> ViewController::topmost() {
  if (const auto presented = presentedViewController()) return presented->topmost();
  if (const auto child = visibleChild()) return child->topmost();
  return shared_from_this();
}

bool ViewController::present(const std::shared_ptr<ViewController>& screen, bool animated) {
  // The outermost container presents for its children.
  if (const auto outermost = root(); outermost.get() != this) return outermost->present(screen, animated);
  if (!canPresent(screen)) return false;
  screen->loadViewIfNeeded();  // the host may be notified and present another screen
  if (!canPresent(screen)) return false;
  screen->presenting_ = weak_from_this();
  const bool covers = screen->modalPresentationStyle == ModalPresentationStyle::fullScreen;
  const bool wasVisible = isVisible_;
  if (wasVisible && covers) disappear(animated);
  presented_.set({screen, animated});
  if (wasVisible) screen->appear(animated);
  return true;
}

bool ViewController::canPresent(const std::shared_ptr<ViewController>& screen) {
  if (!presentedViewController()) return canAdd(screen);
  explain(ExplanationLevel::warning, [&] {
    return std::string(kind()) + " already presents a screen and refuses " + nameOf(screen) +
           ": dismiss the former screen first.";
  });
  return false;
}

void ViewController::dismiss(bool animated) {
  const auto outermost = root();
  if (outermost->presentedViewController()) return outermost->dismissPresented(animated);
  if (const auto presenting = presentingViewController()) presenting->dismissPresented(animated);
}

void ViewController::close() {
  const auto keep = shared_from_this();
  const auto navigation = navigationController();
  if (navigation && navigation->state().viewControllers.size() >= 2) {
    navigation->popViewController(true);
  } else {
    dismiss(true);
  }
}

bool ViewController::canClose() const {
  const auto navigation = navigationController();
  return (navigation && navigation->state().viewControllers.front().get() != this) ||
         presentingViewController();
}

void ViewController::dismissPresented(bool animated) {
  const bool wasOnScreen = isOnScreen();
  dropPresented(animated);
  if (wasOnScreen) appear(animated);  // does nothing if this screen stayed visible
}

void ViewController::dropPresented(bool animated) {
  const auto gone = presentedViewController();
  if (!gone) return;
  gone->dropPresented(animated);
  gone->disappear(animated);
  presented_.set({nullptr, animated});
  gone->presenting_.reset();
}

bool ViewController::isOnScreen() const {
  const auto above = presentedViewController();
  return isVisible_ || (above && above->isOnScreen());
}

void ViewController::loadViewIfNeeded() {
  if (std::exchange(isLoaded_, true)) return;
  viewDidLoad();
}

void ViewController::appear(bool animated) {
  if (std::exchange(isVisible_, true)) return;
  loadViewIfNeeded();
  viewWillAppear(animated);
  showsChildren_ = isVisible_;
  for (const auto& child : shownChildren()) {
    // A child's callback may have removed another child or hidden the whole screen.
    if (isVisible_ && child->parent().get() == this) child->appear(animated);
  }
  if (isVisible_) viewDidAppear(animated);
}

void ViewController::disappear(bool animated) {
  if (!std::exchange(isVisible_, false)) return;
  showsChildren_ = false;
  viewWillDisappear(animated);
  for (const auto& child : shownChildren()) child->disappear(animated);
  viewDidDisappear(animated);
}

bool ViewController::addChild(const std::shared_ptr<ViewController>& child) {
  if (!canAdd(child)) return false;
  adopt(child);
  children_.push_back(child);
  child->loadViewIfNeeded();
  if (showsChildren_ && child->parent().get() == this) child->appear(false);
  return true;
}

void ViewController::removeChild(const std::shared_ptr<ViewController>& child) {
  const auto gone = child;
  if (std::erase(children_, gone) == 0) return;
  gone->disappear(false);
  release(gone);
}

std::vector<std::shared_ptr<ViewController>> ViewController::shownChildren() const {
  if (const auto child = visibleChild()) return {child};
  return children_;
}

bool ViewController::canAdd(const std::shared_ptr<ViewController>& screen) const {
  bool canAdd = screen && !screen->parent() && !screen->presentingViewController();
  for (auto below = shared_from_this(); below && canAdd;) {
    canAdd = below != screen;
    const auto container = below->parent();
    below = container ? container : below->presentingViewController();
  }
  if (!canAdd) {
    explain(ExplanationLevel::warning, [&] {
      return std::string(kind()) + " refuses " + nameOf(screen) +
             (screen ? ", which is shown already: make a new one for each place." : ": pass a screen.");
    });
  }
  return canAdd;
}

void ViewController::adopt(const std::shared_ptr<ViewController>& child) {
  child->parent_ = weak_from_this();
}

void ViewController::release(const std::shared_ptr<ViewController>& child) {
  child->parent_.reset();
}

}  // namespace orrelo
