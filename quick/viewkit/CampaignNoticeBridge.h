#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/CampaignNoticeView.h"

namespace orrelo::quick {

class CampaignNoticeBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading MEMBER heading CONSTANT)
  Q_PROPERTY(QString body MEMBER body CONSTANT)

 public:
  CampaignNoticeBridge(const std::shared_ptr<CampaignNoticeView>& view, QObject* parent)
      : ViewBridge(view, parent), body(toQt(view->text)) {}

  const QString heading = toQt(CampaignNoticeView::heading);
  const QString body;
};

}  // namespace orrelo::quick
