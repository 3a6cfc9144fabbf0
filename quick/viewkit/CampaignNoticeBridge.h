#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/CampaignNoticeView.h"

namespace orrelo::quick {

class CampaignNoticeBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString heading READ heading CONSTANT)
  Q_PROPERTY(QString body READ body CONSTANT)

 public:
  CampaignNoticeBridge(const std::shared_ptr<CampaignNoticeView>& view, QObject* parent)
      : ViewBridge(view, parent), notice_(*view) {}

  QString heading() const { return toQt(CampaignNoticeView::heading); }
  QString body() const { return toQt(notice_.text); }

 private:
  const CampaignNoticeView& notice_;
};

}  // namespace orrelo::quick
