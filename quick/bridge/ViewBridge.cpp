#include "quick/bridge/ViewBridge.h"

#include "quick/bridge/Bridges.h"

namespace orrelo::quick {

QUrl ViewBridge::delegate() const {
  return delegateOf(view_->kind());
}

}  // namespace orrelo::quick
