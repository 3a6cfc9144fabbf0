#include "ui/KeyWindow.h"

namespace orrelo {
namespace {

std::weak_ptr<ViewController>& slot() {
  static auto* const slot = new std::weak_ptr<ViewController>;
  return *slot;
}

}  // namespace

std::shared_ptr<ViewController> keyWindowRootViewController() {
  return slot().lock();
}

void setKeyWindowRootViewController(const std::shared_ptr<ViewController>& root) {
  slot() = root;
}

}  // namespace orrelo
