#pragma once

#include "campaign/CampaignViewController.h"
#include "quick/bridge/ViewBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"

namespace orrelo::quick {

class CampaignScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl background MEMBER background CONSTANT)
  /// The campaign's page; null until it has been loaded.
  Q_PROPERTY(orrelo::quick::ViewBridge* content READ content NOTIFY contentChanged)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error MEMBER error CONSTANT)

 public:
  CampaignScreenBridge(const std::shared_ptr<CampaignViewController>& screen, QObject* parent);

  const QUrl background = assetFile(CampaignViewController::backgroundAsset);
  ErrorBridge* const error;

  ViewBridge* content() const { return content_; }
  bool isLoading() const { return campaign_.state().isLoading; }

 Q_SIGNALS:
  void contentChanged();

 private:
  void updateContent();

  const CampaignViewController& campaign_;
  ViewBridge* content_ = nullptr;
};

}  // namespace orrelo::quick
