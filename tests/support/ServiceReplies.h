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

}  // namespace orrelo::test
