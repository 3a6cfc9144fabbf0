#pragma once

#include "quick/bridge/ScreenBridge.h"
#include "quick/rewards/point/PointBridge.h"
#include "quick/viewkit/IconRectangleButtonBridge.h"
#include "rewards/RewardViewController.h"

namespace orrelo::quick {

class RewardTabBridge final : public orrelo::quick::ScreenBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(int visibleButtonCount READ visibleButtonCount NOTIFY stateChanged)
  Q_PROPERTY(bool isHorizontalRewardStackHidden READ isHorizontalRewardStackHidden NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::PointBridge* point MEMBER point CONSTANT)
  Q_PROPERTY(orrelo::quick::IconRectangleButtonBridge* gifticonButton MEMBER gifticonButton CONSTANT)
  Q_PROPERTY(
      orrelo::quick::IconRectangleButtonBridge* externalPointButton MEMBER externalPointButton CONSTANT)
  Q_PROPERTY(orrelo::quick::IconRectangleButtonBridge* ticketButton MEMBER ticketButton CONSTANT)

 public:
  RewardTabBridge(const std::shared_ptr<RewardViewController>& screen, QObject* parent)
      : ScreenBridge(screen, parent),
        point(new PointBridge(screen->pointView, this)),
        gifticonButton(new IconRectangleButtonBridge(screen->gifticonButton, this)),
        externalPointButton(new IconRectangleButtonBridge(screen->externalPointButton, this)),
        ticketButton(new IconRectangleButtonBridge(screen->ticketButton, this)),
        tab_(*screen) {
    follow(tab_.stateChanges());
  }

  PointBridge* const point;
  IconRectangleButtonBridge* const gifticonButton;
  IconRectangleButtonBridge* const externalPointButton;
  IconRectangleButtonBridge* const ticketButton;

  int visibleButtonCount() const { return tab_.state().visibleButtonCount; }
  bool isHorizontalRewardStackHidden() const { return tab_.state().isHorizontalRewardStackHidden(); }

  Q_INVOKABLE void onClickPointView() { tab_.onClickPointView(); }
  Q_INVOKABLE void onClickGifticonButton() { tab_.onClickGifticonButton(); }
  Q_INVOKABLE void onClickExternalPointButton() { tab_.onClickExternalPointButton(); }

 private:
  RewardViewController& tab_;
};

}  // namespace orrelo::quick
