#pragma once

#include <string>

namespace orrelo::test {

/// A complete reply of "/config".
inline std::string configReply(bool sdkEnable = true) {
  return std::string(R"({"sdk_enable":)") + (sdkEnable ? "true" : "false") +
         R"(,"notification_polling_interval":60000,"auto_swipe_interval":3000,
             "app_install_link":"https://store.example/app","push_service_setting":"Polling",
             "color":{"main":"#FF0000","sub1":"#00FF00","sub2":"#0000FF"},
             "plugins":{"pointsystem":true,"gifticon":false,"naverpay":{"is_enabled":true,
               "entry_view_message":"포인트","exchange_text":"교환","landing_url":"https://pay.example/"}},
             "entries":[{"id":"main","destination_type":"home","destination":""},
                        {"id":"event","destination_type":"campaign","destination":"c-1"}]})";
}

/// A page of an attendance campaign on 2023-11-14; `more` are fields of its detail, each followed by a comma.
inline std::string attendancePage(const std::string& attended = "", const std::string& more = "") {
  return R"({"page_type":"attendance","page_id":"p-1","page_detail":{)" + more +
         R"("first_title":"매일 출석하고","second_title":"포인트 받기","status_message":"오늘도 들러 주셨네요",
            "today":"2023-11-14","attended_date":["2023-11-13")" +
         (attended.empty() ? "" : ",\"" + attended + "\"") +
         R"(],"highlighted_date":["2023-11-20"],"highlight_icon":"https://img.example/gift.png",
            "button_enable":"true","button_text":"출석하기","button_url":"/attendance/c-1/check-in",
            "calendar_description":["이번 달","2일 출석"],"color":"#3366FF","highlight_color":"#FFCC00",
            "guide_message":"하루에 한 번 출석할 수 있어요.","notice":["하루 한 번만 됩니다.","문의: 고객센터"],
            "toolbar_text":"출석체크"}})";
}

/// A page with the result of a campaign; `more` as above.
inline std::string resultPage(const std::string& more = "") {
  return R"({"page_type":"result","page_id":"p-2","page_detail":{)" + more +
         R"("image_url":"https://img.example/result.png","body":"참여해 주셔서 감사합니다.","notice":["끝"],
            "toolbar_text":"결과"}})";
}

/// A page that asks to allow marketing messages.
inline std::string optInMarketingPage(bool isEnabled = true, bool isVisible = true) {
  const auto flag = [](bool isTrue) { return std::string(isTrue ? "true" : "false"); };
  return R"({"page_type":"opt_in_marketing","page_id":"p-3","page_detail":{"toolbar_text":"혜택 알림",
            "image_url":"https://img.example/bell.png","button_text":"알림 받으러 가기","button_enable":)" +
         flag(isEnabled) + R"(,"button_visibility":)" + flag(isVisible) +
         R"(,"color":"#5B50E8","notice":["알림은 언제든지 끌 수 있습니다."]}})";
}

/// A reply of "/campaigns/<id>".
inline std::string campaignReply(const std::string& page, const std::string& id = "c-1") {
  return R"({"id":")" + id +
         R"(","label":"매일","name":"11월 출석","icon":"https://img.example/icon.png","page":)" + page + "}";
}

}  // namespace orrelo::test
