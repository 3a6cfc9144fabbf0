#pragma once

#include "ui/View.h"

#include <orrelo/Export.h>

#include <string>
#include <vector>

namespace orrelo {

/// What the user has to know, as a list under a heading.
class ORRELO_EXPORT CampaignNoticeView final : public View {
 public:
  static constexpr auto heading = "[유의사항]";

  static constexpr std::string_view kindName = "CampaignNoticeView";
  std::string_view kind() const override { return kindName; }

  void setMessages(const std::vector<std::string>& messages);

  /// One bullet line a message.
  Followed<std::string> body;
};

}  // namespace orrelo
