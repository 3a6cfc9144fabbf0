#include "ui/TabBarController.h"

#include "base/explain.h"

#include <utility>

namespace orrelo {

std::shared_ptr<TabBarController> TabBarController::create(
    const std::vector<std::shared_ptr<ViewController>>& viewControllers) {
  std::shared_ptr<TabBarController> tabs(new TabBarController);
  State state;
  for (const auto& screen : viewControllers) {
    if (!tabs->canAdd(screen)) continue;
    tabs->adopt(screen);
    state.viewControllers.push_back(screen);
  }
  tabs->state_.set(std::move(state));
  return tabs;
}

TabBarController::~TabBarController() {
  for (const auto& screen : state().viewControllers) release(screen);
}

std::shared_ptr<ViewController> TabBarController::visibleChild() const {
  const auto current = state();
  return current.viewControllers.empty() ? nullptr : current.viewControllers.at(current.selectedIndex);
}

void TabBarController::select(std::size_t index) {
  const auto current = state();
  if (index >= current.viewControllers.size()) {
    return explain(ExplanationLevel::warning,
                   [index] { return "TabBarController has no screen at " + std::to_string(index); });
  }
  if (index == current.selectedIndex) return;
  const auto former = visibleChild();
  if (isVisible()) former->disappear(false);
  state_.change([index](State& state) { state.selectedIndex = index; });
  if (isVisible()) visibleChild()->appear(false);
}

}  // namespace orrelo
