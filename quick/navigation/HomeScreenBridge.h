#pragma once

#include "navigation/HomeViewController.h"
#include "quick/campaign/list/CampaignListBridge.h"
#include "quick/rewards/RewardTabBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"

namespace orrelo::quick {

/// The screen must have been loaded.
class HomeScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl background MEMBER background CONSTANT)
  Q_PROPERTY(orrelo::quick::RewardTabBridge* rewards MEMBER rewards CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignListBridge* campaigns MEMBER campaigns CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)

 public:
  HomeScreenBridge(const std::shared_ptr<HomeViewController>& screen, QObject* parent)
      : PageBridge(screen, parent),
        rewards(new RewardTabBridge(screen->rewardViewController(), this)),
        campaigns(new CampaignListBridge(screen->campaignListViewController(), this)),
        error(new ErrorBridge(screen->errorView, this)),
        home_(*screen) {
    follow(home_.stateChanges());
  }

  const QUrl background = assetFile(HomeViewController::backgroundAsset);
  RewardTabBridge* const rewards;
  CampaignListBridge* const campaigns;
  ErrorBridge* const error;

  bool isLoading() const { return home_.state().isLoading; }

  Q_INVOKABLE void refresh() { home_.refresh(); }

 private:
  HomeViewController& home_;
};

}  // namespace orrelo::quick
