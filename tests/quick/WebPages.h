#pragma once

#include <QColor>
#include <QImage>
#include <string>

namespace orrelo::test {

/// A modular page with a web block as wide as the screen, above a button "참여하기".
inline std::string pageWithWebBlock(const std::string& url, int height = 240) {
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{
      "toolbar":{"text":"이벤트 안내"},"component_order":["web","action"]}},"blank":[24,24],
    "web":[{"url":")" +
         url + R"(","width":"100%","height":")" + std::to_string(height) + R"("}],
    "action":[{"button_text":"참여하기","status_message":"오늘 한 번 남았어요","button_enable":true,
      "button_url":"/join","button_color":"#5B50E8"}]}})";
}

/// The y coordinate of the top of the button of `pageWithWebBlock` in a picture of the screen; -1 without a
/// button.
inline int topOfButton(const QImage& picture) {
  for (int y = 0; y < picture.height(); ++y) {
    if (picture.pixelColor(picture.width() / 4, y) == QColor("#5B50E8")) return y;
  }
  return -1;
}

}  // namespace orrelo::test
