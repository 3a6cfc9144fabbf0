#include "ui/KeyWindow.h"

namespace orrelo {
namespace {

std::weak_ptr<ViewController>& rootSlot() {
  static auto* const slot = new std::weak_ptr<ViewController>;
  return *slot;
}

}  // namespace

std::shared_ptr<ViewController> keyWindowRootViewController() {
  return rootSlot().lock();
}

void setKeyWindowRootViewController(const std::shared_ptr<ViewController>& root) {
  rootSlot() = root;
}

}  // namespace orrelo
