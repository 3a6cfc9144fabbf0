#pragma once

#include "viewkit/NoticeView.h"

#include <orrelo/Export.h>

namespace orrelo {

/// A notice below a heading, on a card.
class ORRELO_EXPORT CampaignNoticeView final : public NoticeView {
 public:
  static constexpr auto heading = "[유의사항]";

  using NoticeView::NoticeView;

  static constexpr std::string_view kindName = "CampaignNoticeView";
  std::string_view kind() const override { return kindName; }
};

}  // namespace orrelo
