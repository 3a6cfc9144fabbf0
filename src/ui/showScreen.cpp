#include "ui/showScreen.h"

#include "base/explain.h"
#include "ui/NavigationController.h"

#include <string>

namespace orrelo {

void showScreen(const std::shared_ptr<ViewController>& screen, const std::shared_ptr<ViewController>& with) {
  if (!with) return;
  if (const auto navigation = with->navigationController()) {
    navigation->pushViewController(screen, true);
  } else {
    with->present(screen, true);
  }
}

void explainMissingScreen(const std::shared_ptr<ViewController>& with, std::string_view operation) {
  if (with) return;
  explain(ExplanationLevel::error, [operation] {
    return std::string(operation) +
           " shows nothing, since the host's screen is null: pass the screen of a window with an OrreloHost, "
           "quick::hostViewController(window).";
  });
}

}  // namespace orrelo
