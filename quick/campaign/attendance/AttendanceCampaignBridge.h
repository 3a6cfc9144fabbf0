#pragma once

#include "campaign/attendance/AttendanceCampaignView.h"
#include "quick/campaign/CampaignActionBridge.h"
#include "quick/campaign/attendance/CampaignCalendarBridge.h"
#include "quick/viewkit/CampaignInfoBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"

namespace orrelo::quick {

class AttendanceCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::CampaignInfoBridge* info READ info CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignActionBridge* action READ action CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignCalendarBridge* calendar READ calendar CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice READ notice CONSTANT)

 public:
  AttendanceCampaignBridge(const std::shared_ptr<AttendanceCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent),
        info_(new CampaignInfoBridge(view->infoView, this)),
        action_(new CampaignActionBridge(view->actionView, this)),
        calendar_(new CampaignCalendarBridge(view->calendarView, this)),
        notice_(new CampaignNoticeBridge(view->noticeView, this)) {}

  CampaignInfoBridge* info() const { return info_; }
  CampaignActionBridge* action() const { return action_; }
  CampaignCalendarBridge* calendar() const { return calendar_; }
  CampaignNoticeBridge* notice() const { return notice_; }

 private:
  CampaignInfoBridge* const info_;
  CampaignActionBridge* const action_;
  CampaignCalendarBridge* const calendar_;
  CampaignNoticeBridge* const notice_;
};

}  // namespace orrelo::quick
