#pragma once

#include "campaign/CampaignViewController.h"
#include "quick/bridge/ViewBridge.h"
#include "quick/viewkit/ErrorBridge.h"
#include "quick/viewkit/PageBridge.h"

namespace orrelo::quick {

class CampaignScreenBridge final : public PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl background READ background CONSTANT)
  /// The campaign's page; null until it has been loaded.
  Q_PROPERTY(orrelo::quick::ViewBridge* content READ content NOTIFY contentChanged)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(double indicatorSize READ indicatorSize CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)

 public:
  CampaignScreenBridge(const std::shared_ptr<CampaignViewController>& screen, QObject* parent);

  QUrl background() const { return assetFile(CampaignViewController::backgroundAsset); }
  ViewBridge* content() const { return content_; }
  bool isLoading() const { return campaign_.state().isLoading; }
  double indicatorSize() const { return CampaignViewController::indicatorSize.width; }
  ErrorBridge* error() const { return error_; }

 Q_SIGNALS:
  void contentChanged();

 private:
  void updateContent();

  const CampaignViewController& campaign_;
  ErrorBridge* const error_;
  ViewBridge* content_ = nullptr;
};

}  // namespace orrelo::quick
