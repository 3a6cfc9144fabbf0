#include "viewkit/CampaignNoticeView.h"

namespace orrelo {

void CampaignNoticeView::setMessages(const std::vector<std::string>& messages) {
  std::string text;
  for (const auto& message : messages) {
    if (!text.empty()) text += '\n';
    text += "• " + message;
  }
  body.set(std::move(text));
}

}  // namespace orrelo
