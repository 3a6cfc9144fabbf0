#pragma once

#include "viewkit/NoticeView.h"

#include <orrelo/Export.h>

namespace orrelo {

/// A notice below a heading, on a card.
class ORRELO_EXPORT CampaignNoticeView final : public NoticeView {
 public:
  static constexpr auto heading = "[유의사항]";

  using NoticeView::NoticeView;

  std::string_view kind() const override { return "CampaignNoticeView"; }
};

}  // namespace orrelo
