#pragma once

#include "campaign/result/CampaignResult.h"
#include "image/ImageView.h"
#include "viewkit/CampaignNoticeView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string>

namespace orrelo {

/// The page shown to this user after a campaign has ended.
class ORRELO_EXPORT CampaignResultView final : public View {
 public:
  explicit CampaignResultView(const CampaignResult& result)
      : body(result.body),
        name(result.name),
        label(result.label),
        noticeView(std::make_shared<CampaignNoticeView>(result.notice.messages)) {
    imageView->load(result.imageUrl);
  }

  static constexpr std::string_view kindName = "CampaignResultView";
  std::string_view kind() const override { return kindName; }

  const std::string body;
  const std::string name;
  const std::string label;
  const std::shared_ptr<AutoLayoutImageView> imageView = std::make_shared<AutoLayoutImageView>();
  const std::shared_ptr<CampaignNoticeView> noticeView;
};

}  // namespace orrelo
