#include "viewkit/ToastLayer.h"

#include <algorithm>

namespace orrelo {

void ToastLayer::showToast(const std::string& message, const Color& color) {
  toasts.change([&](auto& standing) {
    const bool stands = std::any_of(standing.begin(), standing.end(),
                                    [&](const auto& toast) { return toast->message == message; });
    if (!stands) standing.push_back(std::make_shared<ToastView>(message, color));
  });
}

void ToastLayer::fadeDidFinish(const ToastView& toast) {
  toasts.change([&](auto& standing) {
    std::erase_if(standing, [&](const auto& each) { return each.get() == &toast; });
  });
}

}  // namespace orrelo
