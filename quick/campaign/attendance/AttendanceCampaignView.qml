import QtQuick
import Orrelo.Kit

PageScroll {
    id: view

    required property AttendanceCampaignBridge model

    CampaignInfoView {
        width: parent.width
        model: view.model.info
    }
    CampaignActionView {
        width: parent.width
        model: view.model.action
    }
    CampaignCalendarView {
        width: parent.width
        model: view.model.calendar
    }
    CampaignNoticeView {
        width: parent.width
        model: view.model.notice
    }
}
