#include "quick/bridge/ViewBridge.h"

#include "quick/bridge/Kinds.h"

namespace orrelo::quick {

QUrl ViewBridge::delegate() const {
  return delegateOf(view_->kind());
}

}  // namespace orrelo::quick

#include "moc_ViewBridge.cpp"
