#pragma once

#include "campaign/stamp/StampCampaignView.h"
#include "quick/bridge/StackBridge.h"

namespace orrelo::quick {

class StampCampaignBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::StackBridge* stack MEMBER stack CONSTANT)

 public:
  StampCampaignBridge(const std::shared_ptr<StampCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent), stack(new StackBridge(view->stackView, this)) {}

  StackBridge* const stack;
};

}  // namespace orrelo::quick
