#pragma once

#include <orrelo/quick/ORLCampaignFloatingActionButton.h>

#include <QtQml/qqmlregistration.h>

namespace orrelo::quick {

/// The button of OrreloCampaignFloatingActionButton.qml.
class CampaignFloatingActionButtonItem : public orrelo::quick::ORLCampaignFloatingActionButton {
  Q_OBJECT
  QML_ELEMENT

 public:
  using ORLCampaignFloatingActionButton::ORLCampaignFloatingActionButton;
};

}  // namespace orrelo::quick
