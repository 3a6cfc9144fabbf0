#include "viewkit/ToastLayer.h"

#include <algorithm>

namespace orrelo {

void ToastLayer::showToast(const std::string& message, const Color& color) {
  toasts.change([&](auto& shown) {
    const bool isShown =
        std::any_of(shown.begin(), shown.end(), [&](const auto& toast) { return toast->message == message; });
    if (!isShown) shown.push_back(std::make_shared<ToastView>(message, color));
  });
}

void ToastLayer::fadeDidFinish(const ToastView& toast) {
  toasts.change(
      [&](auto& shown) { std::erase_if(shown, [&](const auto& each) { return each.get() == &toast; }); });
}

}  // namespace orrelo
