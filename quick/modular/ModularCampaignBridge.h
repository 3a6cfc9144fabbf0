#pragma once

#include "modular/ModularCampaignView.h"
#include "quick/bridge/StackBridge.h"

#include <QColor>

namespace orrelo::quick {

class ModularCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::StackBridge* stack READ stack CONSTANT)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor CONSTANT)

 public:
  ModularCampaignBridge(const std::shared_ptr<ModularCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent), stack_(new StackBridge(view->stackView, this)) {}

  StackBridge* stack() const { return stack_; }
  QColor backgroundColor() const { return toQt(ModularCampaignView::backgroundColor); }

 private:
  StackBridge* const stack_;
};

}  // namespace orrelo::quick
