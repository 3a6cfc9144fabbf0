#pragma once

#include "modular/content/SpacerView.h"
#include "quick/bridge/ViewBridge.h"

namespace orrelo::quick {

class SpacerBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(double height MEMBER height CONSTANT)

 public:
  SpacerBridge(const std::shared_ptr<SpacerView>& view, QObject* parent)
      : ViewBridge(view, parent), height(view->height) {}

  const double height;
};

}  // namespace orrelo::quick
