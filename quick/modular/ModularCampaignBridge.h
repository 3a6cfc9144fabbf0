#pragma once

#include "modular/ModularCampaignView.h"
#include "quick/bridge/StackBridge.h"

namespace orrelo::quick {

class ModularCampaignBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::StackBridge* stack MEMBER stack CONSTANT)

 public:
  ModularCampaignBridge(const std::shared_ptr<ModularCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent), stack(new StackBridge(view->stackView, this)) {}

  StackBridge* const stack;
};

}  // namespace orrelo::quick
