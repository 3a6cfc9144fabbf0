#pragma once

#include "campaign/attendance/AttendanceCampaignView.h"
#include "quick/campaign/CampaignActionBridge.h"
#include "quick/campaign/attendance/CampaignCalendarBridge.h"
#include "quick/viewkit/CampaignInfoBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"

namespace orrelo::quick {

class AttendanceCampaignBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::CampaignInfoBridge* info MEMBER info CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignActionBridge* action MEMBER action CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignCalendarBridge* calendar MEMBER calendar CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice MEMBER notice CONSTANT)

 public:
  AttendanceCampaignBridge(const std::shared_ptr<AttendanceCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent),
        info(new CampaignInfoBridge(view->infoView, this)),
        action(new CampaignActionBridge(view->actionView, this)),
        calendar(new CampaignCalendarBridge(view->calendarView, this)),
        notice(new CampaignNoticeBridge(view->noticeView, this)) {}

  CampaignInfoBridge* const info;
  CampaignActionBridge* const action;
  CampaignCalendarBridge* const calendar;
  CampaignNoticeBridge* const notice;
};

}  // namespace orrelo::quick
