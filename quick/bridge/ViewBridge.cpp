#include "bridge/ViewBridge.h"

#include "bridge/Bridges.h"

namespace orrelo::quick {

QUrl ViewBridge::delegate() const {
  return delegateOf(view_->kind());
}

}  // namespace orrelo::quick
