#include "ui/showScreen.h"

#include "ui/NavigationController.h"

namespace orrelo {

void showScreen(const std::shared_ptr<ViewController>& screen, const std::shared_ptr<ViewController>& with) {
  if (!with) return;
  if (const auto navigation = with->navigationController()) {
    navigation->pushViewController(screen, true);
  } else {
    with->present(screen, true);
  }
}

}  // namespace orrelo
