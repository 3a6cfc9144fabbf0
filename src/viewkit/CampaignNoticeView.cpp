#include "viewkit/CampaignNoticeView.h"

#include "viewkit/bulletLines.h"

namespace orrelo {

void CampaignNoticeView::setMessages(const std::vector<std::string>& messages) {
  body.set(bulletLines(messages));
}

}  // namespace orrelo
